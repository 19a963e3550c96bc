#pragma once

#include <functional>
#include <memory>

#include "audio/audio_bar.h"
#include "audio/film_sound.h"
#include "audio/wave_board.h"
#include "audio/wave_details.h"
#include "capture/caption_grid.h"
#include "capture/caption_panel.h"
#include "capture/main_window.h"
#include "capture/preview.h"
#include "capture/sub_window.h"
#include "capture/time_boxes.h"
#include "capture/timing_capture.h"
#include "core/caption_list.h"
#include "core/document.h"
#include "core/edit_history.h"
#include "core/folders.h"
#include "core/ports/system_info.h"
#include "external/registry_access.h"
#include "external/registry_store.h"
#include "external/vs_filter.h"
#include "formats/catalogue.h"
#include "formats/definition.h"
#include "formats/document_marks.h"
#include "formats/export.h"
#include "formats/format_state.h"
#include "formats/import.h"
#include "forms/audio_commands.h"
#include "forms/audio_wizard.h"
#include "forms/caption_commands.h"
#include "forms/caption_shaping.h"
#include "forms/check_window.h"
#include "forms/checked_rows.h"
#include "forms/command_keys.h"
#include "forms/control_states.h"
#include "forms/dialogs.h"
#include "forms/document_files.h"
#include "forms/document_session.h"
#include "forms/edge_command.h"
#include "forms/editing_tools.h"
#include "forms/embed_wizard.h"
#include "forms/export_dialog.h"
#include "forms/file_notices.h"
#include "forms/file_router.h"
#include "forms/film_commands.h"
#include "forms/film_pairing.h"
#include "forms/film_shots.h"
#include "forms/film_voice.h"
#include "forms/film_workbench.h"
#include "forms/fit_marks.h"
#include "forms/hand_window.h"
#include "forms/help_dialogs.h"
#include "forms/help_window.h"
#include "forms/house_check.h"
#include "forms/journal_keeper.h"
#include "forms/journal_restore.h"
#include "forms/keys_dialog.h"
#include "forms/lines_report.h"
#include "forms/list_view_commands.h"
#include "forms/notices.h"
#include "forms/open_forms.h"
#include "forms/other_captions.h"
#include "forms/palette.h"
#include "forms/player_binding.h"
#include "forms/ports.h"
#include "forms/proposal_tools.h"
#include "forms/recall.h"
#include "forms/recent_files.h"
#include "forms/recovery.h"
#include "forms/release_fitting.h"
#include "forms/reopening.h"
#include "forms/report_window.h"
#include "forms/retakes.h"
#include "forms/retime_window.h"
#include "forms/rules_commands.h"
#include "forms/save_check.h"
#include "forms/selection_commands.h"
#include "forms/shell.h"
#include "forms/shots_dialog.h"
#include "forms/spell_check.h"
#include "forms/start_window.h"
#include "forms/status_line.h"
#include "forms/times_from_sound.h"
#include "forms/undo_commands.h"
#include "forms/utf8_conversion.h"
#include "forms/voice_fitting.h"
#include "forms/wave_commands.h"
#include "forms/window_texts.h"
#include "forms/window_title.h"
#include "settings/languages.h"
#include "settings/messages.h"
#include "settings/store.h"
#include "tools/rule_report.h"

namespace cuewright {

/// What the start needs of the platform.
struct StartEnvironment {
  Text commandLine;                                 ///< whole, as the user gave it
  Text appFolder;                                   ///< the program's own
  Text settingsFile;                                ///< the user's settings
  Text registryFile;                                ///< the user's registry; empty: none is kept
  std::function<Text()> makeTempFolder;             ///< makes a private folder; throws run-time errors
  Text missingPlayer;                               ///< the file of the player that is missing; empty when it is there
  int systemCodePage = 1252;                        ///< ANSI code page of the user's locale
  const Locale* locale = nullptr;                   ///< what the system knows about locales; null: nothing
  Processes* processes = nullptr;                   ///< programs of the system; null: none can be started
  SoundStore* sounds = nullptr;                     ///< with these two a film's sound comes into the Audio bar
  Text systemFolder{};                              ///< of the system for foreign programs, with a "/" at its end
  const SystemInfo* system = nullptr;               ///< what the system says about itself; null: nothing
  Web* web = nullptr;                               ///< the network; null: there is none
  const SpellDictionaries* dictionaries = nullptr;  ///< null: the system has none
  Text documentsFolder{};                           ///< of the user; file dialogs open there at first
  Text filmsFolder{};                               ///< of the user; the same for films and sounds
  Text wordsFolder;                                 ///< of the words that the user adds; empty: they aren't kept
};

/// The running program: the owner of all its state and of what works on it.
class Program final {
 public:
  Program(Ports ports, StartEnvironment environment);
  ~Program();

  /// The steps of the start up to the first window. False when the program has to end: its format files are missing.
  [[nodiscard]] bool Start();
  /// No language was ever stored.
  bool FirstRun() const { return languages.FirstRun(); }
  bool PlayerMissing() const { return !environment_.missingPlayer.empty(); }
  /// The main window loads: title, options, language, empty list.
  Shell::StartSize LoadMainWindow(int screenWidth, int screenHeight);
  /// The main window is up: on a first run the settings open at the language.
  void OpenOnFirstRun();
  /// The main window is up: what a program that ended had not saved is offered, and the file of the command line opens.
  void OnFirstActivation();
  /// Takes a row of the language table for this run and labels every open window anew. Gives how much of the language
  /// is there, in percent. The store is left alone.
  int ChangeLanguage(std::size_t row);

 private:
  const Locale unknownLocale_{};
  const SystemInfo unknownSystem_{};
  Web noWeb_;
  const SpellDictionaries noDictionaries_{};
  Ports ports_;
  StartEnvironment environment_;

 public:
  // In the order of their making: what stands below is made of what stands above.
  AppOptions options;
  LangStrings strings;
  MessageCatalogue messageCatalogue;
  Folders folders;
  Languages languages;
  SettingsStore store;
  DocumentState document;
  Encodings encodings;
  RegistryStore registryFile;
  clsRegistryAccess registry;
  VsFilter vsFilter;
  FormatCatalogue catalogue;
  FormatState formats;
  DocumentMarks marks{formats};
  MainWindow window;
  SubWindow sub;
  StartWindow start;
  OpenForms openForms;
  CaptionList list;
  EditHistory history;
  CaptionGrid grid;
  CaptionPanel panel;
  PlayerSample sample;
  Preview preview;
  TimingCapture capture;
  TimeBoxes timeBoxes;
  FormatLoader loader;
  Importer importer;
  Exporter exporter;
  ControlStates states;
  DocumentSession session;
  Recall recall;
  RecentFiles recentFiles;
  Notices notices;
  CaptionCommands commands;
  SelectionCommands selectionCommands;
  ListViewCommands listView;
  PlayerBinding playerBinding;
  ExportDialog exportDialog;
  SaveCheck saveCheck;
  DocumentFiles documentFiles;
  Reopening reopening;
  LinesReport linesReport;
  FileNotices fileNotices;
  AudioBar audioBar;
  WaveDetails waveDetails;
  WaveBoard waveBoard;
  AudioCommands audio;
  FilmSound filmSound;
  FilmShots filmShots;
  ShotsDialog shotsDialog;
  FileRouter router;
  Shell shell;
  Utf8Conversion utf8Conversion;
  WindowTexts texts;
  Dialogs dialogs;
  RuleReport ruleReport;
  ReportWindow reportWindow;
  RulesCommands rules;
  HouseCheck check;
  CheckedRows checkedRows;
  ProposalTools proposals;
  CheckWindow checkWindow;
  EditingTools tools;
  CaptionShaping shaping;
  FilmVoice filmVoice;
  FitMarks fitMarks;
  VoiceFitting fitting;
  ReleaseFitting releaseFitting;
  HandWindow hand;
  TimesFromSound timesFromSound;
  OtherCaptions otherCaptions;
  RetimeWindow retime;
  WaveCommands waveCommands;
  EdgeCommand edges;
  UndoCommands undo;
  JournalKeeper journal;
  Recovery recovery;
  HelpDialogs helpDialogs;
  HelpWindow help;
  SpellCheck spelling;
  EmbedWizard embedWizard;
  AudioWizard audioWizard;
  WindowTitle title;
  FilmCommands film;
  FilmWorkbench filmWorkbench;
  FilmPairing pairing;
  Retakes retakes;
  StatusLine statusLine;
  CommandKeys keys;
  KeysDialog keysDialog;
  Palette palette;

  /// The windows that stand beside the main one.
  std::vector<ToolForm*> ToolForms() {
    return {&reportWindow, &checkWindow, &tools.findWindow, &tools.replaceWindow, &retime, &hand, &help};
  }

  /// The strings have become those of another language: windows that are open read them again. The main window
  /// follows behind.
  Signal<Program> LanguageChanged;

 private:
  void Connect();
  /// List and menus are those of the manner in force.
  void ShowManner();
  /// The items of the check and of what proposes changes, which the classic manner doesn't have.
  void ShowProposingItems();
  void ConnectSession();
  void ConnectFiles();
  void ConnectRules();
  void ConnectAudio();
  void ConnectWave();
  void ConnectFilm();
  void ConnectVoice();
  void ConnectJournal();
  void ConnectWizards();
  void ConnectCommands();
  void OpenEmbedWizard();
  void OpenAudioWizard();
  WizardParts PartsOfWizards();
  void ApplyLanguage();
  Workbench Bench() { return {window, list, grid, document, options, strings}; }
  DocumentFormats Formats() { return {catalogue, formats, loader, importer, exporter}; }
  UpdateParts DescribeUpdates();

  FormatTalk Talk();

  Text startFile_;
  Text settingsTrouble_;          ///< why the settings could not be read; empty when they were
  std::size_t stepsOfRules_ = 0;  ///< steps to take back when the rules had run
  bool leaveJournal_ = false;     ///< the document that goes leaves its journal to the next start
};

}  // namespace cuewright
