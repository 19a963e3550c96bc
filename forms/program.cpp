#include "forms/program.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "core/paths.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "forms/help.h"
#include "forms/sync_page.h"
#include "settings/options.h"

namespace cuewright {

Program::Program(Ports ports, StartEnvironment environment)
    : ports_(ports),
      environment_(std::move(environment)),
      languages({options, strings, messageCatalogue, folders, ports_.files, ports_.messages, ports_.events,
                 environment_.locale != nullptr ? *environment_.locale : unknownLocale_}),
      store(ports_.files, environment_.settingsFile),
      encodings(environment_.systemCodePage),
      registryFile(ports_.files, environment_.registryFile),
      registry(registryFile, ports_.files, encodings, ports_.events),
      vsFilter(registry, options),
      list(options, document.DocModified),
      history(list, document.DocModified),
      grid(list),
      panel(window, list, grid, strings),
      preview(Bench(), sub, ports_.player, sample),
      capture(Bench(), ports_.player, sample, preview),
      timeBoxes(window, list),
      loader(catalogue, formats, store, Talk()),
      importer({catalogue, formats, loader}, Talk(), list, {ports_.files, encodings}, document.ImportCancelled),
      exporter({catalogue, formats, loader}, Talk(), list, {ports_.files, encodings}, document.SubtitlePath,
               document.DocModified),
      states(Bench(), panel, sub, preview, capture, ports_.player),
      session(Bench(), panel, capture, history, states, openForms),
      recall(window, store, ports_.files, folders),
      recentFiles(window, store, ports_.files),
      notices(window, options, strings),
      commands(Bench(), panel, preview, capture, store, ports_),
      selectionCommands(Bench(), panel, preview, formats, ports_),
      listView(Bench(), formats, ports_.player, sample),
      playerBinding(Bench(), session, preview, capture, recall, ports_),
      exportDialog(catalogue, formats, options, strings, ports_.messages),
      saveCheck(Bench(), catalogue, formats, exporter),
      documentFiles(Bench(), Formats(), session, recall, {exportDialog, saveCheck}, ports_),
      reopening(Bench(), Formats(), session, documentFiles, ports_.files),
      linesReport(Bench(), formats),
      fileNotices(Bench(), Formats(), documentFiles, linesReport, notices, ports_.messages),
      audioBar({window, list, preview, sample, document, options, strings, ports_.files, ports_.messages, ports_.events,
                ports_.player}),
      waveDetails(window, ports_.files),
      waveBoard(Bench(), audioBar, waveDetails, ports_.player, sample),
      audio(Bench(), session, store, recall, audioBar, ports_),
      filmSound({window, document, strings, ports_.messages, ports_.player, environment_.processes, environment_.sounds,
                 audioBar, waveDetails, options}),
      filmShots(Bench(), ports_.files, environment_.processes, environment_.sounds, ports_.player, filmSound),
      shotsDialog(filmShots, options, strings),
      router(document, documentFiles, playerBinding, audio),
      shell(Bench(), store, recall, preview, commands, ports_),
      utf8Conversion(Bench(), panel, encodings, ports_.messages),
      texts(Bench(), panel, commands, capture, states, ports_.messages),
      dialogs(window, grid, {options, strings, store, languages, document, preview, capture, vsFilter, ports_},
              {catalogue, formats, store, strings, languages, ports_.messages, ports_.pickers}, exportDialog),
      ruleReport(strings),
      reportWindow(ruleReport, document, strings, languages, ports_.desktop, openForms),
      rules(Bench(), ruleReport, reportWindow, session, ports_),
      check(Bench(), formats, folders, ports_.files, store, ports_.player),
      checkedRows(check, grid, strings),
      proposals(Bench(), check, folders, ports_.files, ports_.messages),
      checkWindow(Bench(), check, proposals, notices, languages, openForms),
      tools(Bench(), languages, openForms, ports_, proposals),
      shaping(Bench(), preview, audioBar, ports_.player, notices, ports_.messages),
      filmVoice(document, ports_.player, ports_.files, environment_.processes, environment_.sounds),
      fitMarks(Bench(), notices),
      fitting(Bench(), filmVoice, fitMarks, check, notices, ports_.messages),
      releaseFitting(Bench(), capture, filmVoice, fitMarks, check, notices),
      hand(Bench(), {capture, router, folders, ports_.files, languages, environment_.processes}, openForms),
      timesFromSound(Bench(), filmVoice, fitMarks, notices, ports_.messages),
      otherCaptions(catalogue, store, {strings, ports_.messages}, {ports_.files, encodings}, options),
      retime(Bench(), formats, languages, ports_.player, openForms,
             {filmVoice, documentFiles, otherCaptions, ports_.player}),
      waveCommands(Bench(), waveBoard, filmShots, preview, notices, ports_.messages),
      edges(Bench(), check.findings, filmShots, proposals),
      undo(window, list, history, capture, preview, strings),
      journal(Bench(), catalogue, formats, ports_.events, ports_.journal),
      recovery(Bench(), Formats(), session, states, journal, ports_),
      helpDialogs(window, DescribeUpdates(), catalogue,
                  environment_.system != nullptr ? *environment_.system : unknownSystem_),
      help({folders, options, strings, languages, dialogs.settings, ports_.files, ports_.desktop}, openForms),
      spelling({Bench(), languages, store,
                environment_.dictionaries != nullptr ? *environment_.dictionaries : noDictionaries_,
                environment_.wordsFolder, ports_}),
      embedWizard(PartsOfWizards()),
      audioWizard(PartsOfWizards()),
      title(Bench(), history),
      film(Bench(), ports_.player, capture, waveBoard, filmShots),
      filmWorkbench(Bench(), ports_.player, filmShots, ports_.messages),
      pairing(Bench(), store, ports_.files, ports_.player, ports_.messages),
      retakes(Bench(), ports_.player, capture, preview, notices),
      statusLine(Bench(), ports_.player),
      keys(window, store, options),
      keysDialog(keys, options, strings),
      palette(keys, strings) {
  Connect();
}

Program::~Program() = default;

void Program::Connect() {
  list.SetMarks(marks);
  ConnectSession();
  ConnectFiles();
  ConnectJournal();
  ConnectRules();
  ConnectAudio();
  ConnectWave();
  ConnectFilm();
  ConnectVoice();
  ConnectWizards();
  ConnectCommands();
  shell.Loading.Connect([this] {
    vsFilter.ApplyVSFilterMode();
    ShowManner();
  });
  spelling.Checked.Connect([this] {
    states.ResetControls();
    panel.ShowText(list.Selected());
  });
  dialogs.settings.Closed.Connect([this] {
    commands.ShowMarks();
    // The manner is a setting of that dialog.
    ShowManner();
  });
  window.mnuHelpTopics.Clicked.Connect(
      [this] { OpenHelp(folders, options.language, strings, ports_.files, ports_.messages, ports_.desktop, help); });
  dialogs.settings.LanguageChosen.Connect([this](std::size_t row) { ChangeLanguage(row); });
}

void Program::ConnectCommands() {
  states.Shown.Connect([this] {
    film.ShowItems();
    filmWorkbench.ShowItems();
    retakes.ShowItems();
    waveCommands.ShowItems();
    edges.ShowItem();
    filmSound.ShowItem();
  });
  window.mnuKeys.Clicked.Connect([this] { keysDialog.Open(window.RightToLeft()); });
  window.mnuShots.Clicked.Connect([this] { shotsDialog.Open(window.RightToLeft()); });
  window.mnuPalette.Clicked.Connect([this] { palette.Open(window.RightToLeft()); });
}

void Program::ShowManner() {
  selectionCommands.ShowItems();
  listView.Show();
  shaping.ShowItems();
  fitting.ShowItems();
  fitMarks.ShowItems();
  releaseFitting.ShowItems();
  hand.ShowItem();
  timesFromSound.ShowItem();
  ShowProposingItems();
  shell.UpdateBars();
  shell.ShowListFont();
  statusLine.Show();
  film.ShowItems();
  filmWorkbench.ShowItems();
  retakes.ShowItems();
  waveCommands.ShowItems();
  edges.ShowItem();
  audioBar.ShowManner();
  if (audioBar.Loaded() && options.manner.WaveIsAWorkbench()) waveDetails.Open(document.WavePath);
  shell.UpdateBars();
  keys.Load();
  window.mnuKeys.SetVisible(options.manner.HasEditingKeys());
  window.mnuPalette.SetVisible(options.manner.HasEditingKeys());
}

void Program::ShowProposingItems() {
  for (MenuItem* item :
       {&window.mnuCheck, &window.mnuNextFinding, &window.mnuBreakLines, &window.mnuClean, &window.mnuLine4a}) {
    item->SetVisible(options.manner.ChecksAndProposes());
  }
}

void Program::ConnectSession() {
  session.Cleared.Connect([this] { notices.Clear(); });
  session.RulesForgotten.Connect([this] { ruleReport.ResetRuleReport(); });
  session.Began.Connect([this](DocumentBaseline baseline) { history.Begin(baseline); });
  session.Began.Connect([this](DocumentBaseline) { check.TakeStored(); });
  session.Ended.Connect([this] { history.End(); });
  session.Ended.Connect([this] { check.TakeStored(); });
  session.FilesEnded.Connect([this] { vsFilter.RestoreVSFilter(); });
  documentFiles.Saved.Connect([this](bool whole) { history.MarkSaved(whole); });
  history.SeparatorRestored.Connect([this](const Text& separator) { commands.RestoreSeparator(separator); });
  recovery.SeparatorRestored.Connect([this](const Text& separator) { commands.RestoreSeparator(separator); });
  // Connected behind the history, which decides whether the title gets a star.
  const auto show = [this] { title.Show(); };
  session.Began.Connect([show](DocumentBaseline) { show(); });
  for (Announcement<>* changed : std::initializer_list<Announcement<>*>{&session.Ended, &list.CommandEnded,
                                                                        &history.Changed, &dialogs.settings.Closed}) {
    changed->Connect(show);
  }
}

void Program::ConnectFiles() {
  recall.Remembered.Connect([this](TextView key, TextView path) {
    recentFiles.Add(key == u"VFileName"   ? FileKind::Film
                    : key == u"AFileName" ? FileKind::Sound
                                          : FileKind::Subtitle,
                    path);
  });
  recentFiles.Chosen.Connect([this](FileKind kind, const Text& path) { router.OpenAs(kind, path); });
}

void Program::ConnectRules() {
  documentFiles.RulesDue.Connect([this] { rules.OnLoad(); });
  rules.Found.Connect([this](int count) { notices.TellFindings(count); });
  rules.Changed.Connect([this](int count) {
    if (count == 0) return notices.ForgetRules();
    stepsOfRules_ = history.UndoSteps();
    notices.TellChanged(count);
  });
  // The strip's Undo is for the rules' own step.
  history.Changed.Connect([this] {
    if (notices.OffersUndo() && history.UndoSteps() != stepsOfRules_) notices.ForgetRules();
  });
  reportWindow.SettingsAsked.Connect([this] { window.mnuGSettings.Click(); });
}

void Program::ConnectAudio() {
  for (Announcement<>* gone : std::initializer_list<Announcement<>*>{&session.FilmEnds, &playerBinding.FilmChanges}) {
    gone->Connect([this] {
      listView.ForgetFilm();
      filmSound.ForgetFilm();
      filmShots.ForgetFilm();
      audioBar.Forget();
    });
  }
  preview.handsOnCaption = [this] { return capture.TextFocus() || audioBar.Dragging() || waveBoard.Dragging(); };
  audioBar.LayoutChanged.Connect([this] { shell.UpdateBars(); });
  // A row that is untimed now isn't shown anew by the dialog, but its marks are.
  tools.DelayDone.Connect([this] { audioBar.PlaceCurrentMarks(); });
  retime.Retimed.Connect([this] { preview.Redraw(list.Selected()); });
}

void Program::ConnectVoice() {
  fitting.UseProcesses(environment_.processes);
  releaseFitting.UseProcesses(environment_.processes);
  timesFromSound.UseProcesses(environment_.processes);
  capture.Held.Connect([this](Row) { releaseFitting.Rest(hand.Exercising()); });
  fitMarks.DoubtfulShown.Connect([this](Row row) { film.LoopStart(row); });
  session.Began.Connect([this](DocumentBaseline) { releaseFitting.Forget(); });
  session.Ended.Connect([this] { releaseFitting.Forget(); });
  session.Leaving.Connect([this](bool thrownAway) {
    if (!thrownAway) releaseFitting.Learn();
  });
}

void Program::ConnectJournal() {
  session.Leaving.Connect([this](bool thrownAway) {
    // What no file holds stays for the next start, unless the user said that it may go.
    leaveJournal_ = !thrownAway && history.Differs();
    journal.Flush();
  });
  const auto gone = [this] {
    if (std::exchange(leaveJournal_, false)) {
      journal.Leave();
    } else {
      journal.Forget();
    }
  };
  session.Began.Connect([gone](DocumentBaseline) { gone(); });
  session.Ended.Connect(gone);
  documentFiles.Saved.Connect([this](bool whole) {
    if (whole) {
      journal.Forget();
    } else {
      journal.Need();
    }
  });
  journal.Failed.Connect([this](const RuntimeError& error) {
    if (notices.Seen()) {
      notices.Tell(Message::JournalFailed, error.description);
    } else {
      ports_.messages.Show({Fill(strings[Message::JournalFailed], error.description), BoxIcon::Warning});
    }
  });
}

UpdateParts Program::DescribeUpdates() {
  return {options,
          strings,
          languages,
          folders,
          encodings,
          environment_.locale != nullptr ? *environment_.locale : unknownLocale_,
          environment_.web != nullptr ? *environment_.web : noWeb_,
          ports_,
          store,
          environment_.settingsFile};
}

bool Program::Start() {
  CarryOn step;
  startFile_ = StartFileOf(environment_.commandLine);
  step([&] { languages.BuildLanguageTable(); });
  formats.ListCharset = languages.ListCharset();
  step([&] { folders.TempFolder = environment_.makeTempFolder(); });
  folders.AppFolder = WithSlash(environment_.appFolder);
  folders.SystemFolder = environment_.systemFolder;
  folders.Documents = environment_.documentsFolder;
  folders.Films = environment_.filmsFolder;
  folders.FormatIniPath = folders.AppFolder + u"formats.ini";
  folders.FormatDatPath = folders.AppFolder + u"formats.dat";
  step([&] { LoadSettings(store, options); });
  settingsTrouble_ = store.LastFailure();
  step([&] { languages.LoadStored(); });
  if (step.Last()) {
    ports_.messages.Show({u"Error ignored on start window initialization.", BoxIcon::Warning});
    step.Clear();
  }
  bool complete = true;
  step([&] {
    complete = LoadFormatCatalogue(catalogue, ports_.files, folders.FormatIniPath, folders.FormatDatPath, encodings,
                                   strings, ports_.messages);
  });
  start.WireLinks(ports_.desktop, options.language);
  if (PlayerMissing()) start.ShowMissing(strings, environment_.missingPlayer, languages.IsRightToLeft());
  if (step.Last()) {
    ports_.messages.Show({u"An error ocurred while loading main window.\r\n\r\nError #" + Decimal(step.Last()->number) +
                              u": " + step.Last()->description,
                          BoxIcon::Warning});
  }
  return complete;
}

Shell::StartSize Program::LoadMainWindow(int screenWidth, int screenHeight) {
  title.Show();
  const Shell::StartSize size = shell.LoadOptions(screenWidth, screenHeight);
  audioBar.LoadOptions();
  waveBoard.LoadOptions();
  ApplyLanguage();
  panel.ResetGrid(CaptionPanel::Showing::Notice);
  states.ResetControls();
  check.TakeStored();
  return size;
}

void Program::OpenOnFirstRun() {
  if (!languages.FirstRun()) return;
  ports_.events.Yield();
  dialogs.OpenSettings();
  languages.EndFirstRun();
}

void Program::OnFirstActivation() {
  const Text path = std::exchange(startFile_, {});
  if (!settingsTrouble_.empty()) {
    const Text told = Fill(strings[Message::SettingsUnreadable], environment_.settingsFile, settingsTrouble_);
    ports_.messages.Show({told, BoxIcon::Warning});
  }
  const bool restored = recovery.Offer();
  if (path.empty()) return;
  if (!restored) return router.OpenStartFile(path);
  // A text, or what would be taken for one, must not take the place of the document that has just come back.
  if (const FileKind kind = KindOfFile(path); kind != FileKind::Subtitle) router.OpenAs(kind, path);
}

int Program::ChangeLanguage(std::size_t row) {
  languages.Select(row);
  const int percent = languages.LoadLanguageStrings(false);
  LanguageChanged();
  if (PlayerMissing()) start.ShowMissing(strings, environment_.missingPlayer, languages.IsRightToLeft());
  ApplyLanguage();
  return percent;
}

void Program::ApplyLanguage() {
  notices.ApplyLanguage();
  texts.ApplyMainWindowLanguage(languages.IsRightToLeft());
  undo.ShowItems();
  title.Show();
  for (Label* label : {&sub.lblShadow, &sub.lblSub}) label->SetRightToLeft(languages.IsRightToLeft());
  for (ToolForm* form : ToolForms()) {
    if (form->Loaded()) form->ApplyLanguage(languages.IsRightToLeft());
  }
}

FormatTalk Program::Talk() {
  return {strings, ports_.messages, [this](FileStage stage, TextView status) { documentFiles.Follow(stage, status); }};
}

}  // namespace cuewright
