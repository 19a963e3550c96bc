#include "forms/program.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "core/paths.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "formats/convert_from_utf8.h"
#include "forms/help.h"
#include "settings/options.h"

namespace cuewright {

Program::Program(Ports ports, StartEnvironment environment)
    : ports_(ports),
      environment_(std::move(environment)),
      languages(options, strings, messages, folders, ports_.files, ports_.messages, ports_.events,
                environment_.locale != nullptr ? *environment_.locale : unknownLocale_),
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
      loader(catalogue, formats, store, strings, ports_.messages, *this),
      importer(loader, list, ports_.files, encodings, document.ImportCancelled),
      exporter(loader, list, ports_.files, encodings, document.SubtitlePath, document.DocModified),
      recall(window, store, ports_.files, folders),
      recentFiles(window, store, ports_.files),
      notices(window, options, strings),
      commands(window, list, grid, panel, document, options, strings, ports_.messages, store, preview, capture,
               ports_.events),
      playerBinding(window, sub, document, strings, ports_.files, ports_.messages, ports_.player, preview, capture,
                    recall),
      files(Parts(), ports_),
      shell(window, list, grid, panel, document, options, strings, store, recall, preview, capture, commands,
            playerBinding, folders, ports_),
      exportDialog(catalogue, formats, strings, ports_.messages),
      dialogs(window, grid, {options, strings, store, languages, document, preview, capture, vsFilter, ports_},
              {catalogue, formats, store, strings, languages, ports_.messages, ports_.pickers}, exportDialog),
      ruleReport(strings),
      reportWindow(ruleReport, document, strings, languages, ports_.desktop, openForms),
      rules(window, list, capture, ruleReport, reportWindow, strings, openForms, ports_),
      tools(window, list, strings, languages, openForms, ports_),
      audioBar({window, list, preview, sample, document, options, strings, ports_.files, ports_.messages, ports_.events,
                ports_.player}),
      audio(window, document, strings, languages, store, recall, audioBar, ports_),
      filmSound({window, document, strings, ports_.messages, ports_.player, environment_.processes, environment_.sounds,
                 audioBar}),
      undo(window, list, history, capture, preview, strings),
      journal(window, list, document, ports_.events, ports_.journal, [this] { return DescribeDocument(); }),
      helpDialogs(window, DescribeUpdates(), catalogue,
                  environment_.system != nullptr ? *environment_.system : unknownSystem_),
      help(folders, options, strings, languages, ports_.files, ports_.desktop, openForms),
      spelling({window, list, options, strings, languages, store,
                environment_.dictionaries != nullptr ? *environment_.dictionaries : noDictionaries_,
                environment_.wordsFolder, ports_}),
      embedWizard(PartsOfWizards()),
      audioWizard(PartsOfWizards()),
      title(window, document, options, strings) {
  Connect();
}

void Program::ConnectFiles() {
  recall.Remembered.Connect([this](TextView key, TextView path) {
    recentFiles.Add(key == u"VFileName"   ? FileKind::Film
                    : key == u"AFileName" ? FileKind::Sound
                                          : FileKind::Subtitle,
                    path);
  });
  recentFiles.open = [this](FileKind kind, const Text& path) { files.OpenAs(kind, path); };
  files.Left.Connect([this] { notices.Clear(); });
  files.Loaded.Connect([this] { TellFile(Message::ReadAs); });
  files.Saved.Connect([this](bool) {
    if (!notices.Shown()) TellFile(Message::SavedAs);
  });
}

void Program::TellFile(Message text) {
  notices.Tell(text, catalogue.ReadIni(catalogue.Identifier(formats.CurrentFormatIndex), u"name", {}),
               EncodingName(formats.Encoding));
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
          [this] { return store.GetSetting(kMainSection, u"UpdateSite", UpdateSite()); },
          environment_.settingsFile};
}

FileActionParts Program::Parts() {
  return {window,  list,   history,  panel,    document, options,       strings, store, catalogue,
          formats, loader, importer, exporter, recall,   playerBinding, capture, sub};
}

void Program::Connect() {
  files.resetControls = [this] {
    shell.ResetControls();
    if (!document.HasDocument()) ruleReport.ResetRuleReport();
  };
  playerBinding.resetControls = files.resetControls;
  spelling.resetControls = files.resetControls;
  playerBinding.closeReport = [this] { openForms.UnloadForm("frmReport"); };
  files.closeTools = [this] {
    for (const char* name : {"frmEmbed", "frmFind", "frmReplace", "frmReport"}) openForms.UnloadForm(name);
  };
  files.restoreFilter = [this] { vsFilter.RestoreVSFilter(); };
  shell.applyFilter = [this] { vsFilter.ApplyVSFilterMode(); };
  files.refreshFileLabels = [this] { shell.RefreshFileLabels(); };
  ConnectRules();
  ConnectFiles();
  ConnectHistory();
  ConnectTitle();
  ConnectJournal();
  ConnectWizards();
  window.mnuUTF8.Clicked.Connect([this] { ConvertFromUtf8(); });
  window.mnuHelpTopics.Clicked.Connect(
      [this] { OpenHelp(folders, options.language, strings, ports_.files, ports_.messages, ports_.desktop, help); });
  help.settingsPage = [this] { return dialogs.settings.Page(); };
  dialogs.settings.changeLanguage = [this](std::size_t row) { ChangeLanguage(row); };
  ConnectAudio();
  files.chooseFormat = [this] {
    exportDialog.Open(languages.IsRightToLeft());
    if (runExportDialog) runExportDialog();
    return exportDialog.Result();
  };
}

void Program::ConnectAudio() {
  files.openAudioFile = [this](TextView path) { audio.OpenAudioFile(path, kAudioToPlayer); };
  files.closeWave = [this] {
    filmSound.Stop();
    audioBar.Forget();
  };
  audio.closeTools = files.closeTools;
  audio.resetControls = files.resetControls;
  preview.handsOnCaption = [this] { return capture.TextFocus() || audioBar.Dragging(); };
  playerBinding.closeWave = files.closeWave;
  audioBar.LayoutChanged.Connect([this] { shell.UpdateBars(); });
  tools.DelayDone.Connect([this] { audioBar.PlaceCurrentMarks(); });
}

void Program::ConnectRules() {
  rules.refreshFileLabels = files.refreshFileLabels;
  files.resetRuleReport = [this] { ruleReport.ResetRuleReport(); };
  files.applyRulesOnLoad = [this] { rules.OnLoad(); };
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
  // A row that is untimed now isn't shown anew by the dialog, but its marks are.
  tools.DelayDone.Connect([this] { audioBar.PlaceCurrentMarks(); });
  reportWindow.openSettings = [this] { window.mnuGSettings.Click(); };
}

void Program::ConnectHistory() {
  files.DocumentOpened.Connect(
      [this] { history.Begin(document.HasFile() ? DocumentBaseline::File : DocumentBaseline::Blank); });
  files.DocumentClosed.Connect([this] { history.End(); });
  files.Saved.Connect([this](bool whole) { history.MarkSaved(whole); });
  history.SeparatorRestored.Connect([this](const Text& separator) { commands.RestoreSeparator(separator); });
}

void Program::ConnectTitle() {
  title.unsaved = [this] { return !history.AtSavedStep() && document.HasDocument(); };
  for (Signal<>* changed :
       {&list.CommandEnded, &history.Changed, &files.DocumentOpened, &files.DocumentClosed, &dialogs.settings.Closed}) {
    changed->Connect([this] { title.Show(); });
  }
}

void Program::ConnectJournal() {
  files.Leaving.Connect([this](bool thrownAway) {
    // What no file holds stays for the next start, unless the user said that it may go.
    leaveJournal_ = !thrownAway && history.Differs();
    journal.Flush();
  });
  for (Signal<>* gone : {&files.DocumentOpened, &files.DocumentClosed}) {
    gone->Connect([this] {
      if (std::exchange(leaveJournal_, false)) {
        journal.Leave();
      } else {
        journal.Forget();
      }
    });
  }
  files.Saved.Connect([this](bool whole) {
    if (whole) {
      journal.Forget();
    } else {
      journal.Need();
    }
  });
  journal.tellFailure = [this](const RuntimeError& error) {
    if (notices.Seen()) {
      notices.Tell(Message::JournalFailed, error.description);
    } else {
      ports_.messages.Show({Fill(strings[Message::JournalFailed], error.description), BoxIcon::Warning});
    }
  };
}

JournalDocument Program::DescribeDocument() const {
  JournalDocument described;
  described.path = document.SubtitlePath;
  described.format = catalogue.Identifier(formats.CurrentFormatIndex);
  described.fps = formats.CurrentFps;
  described.codePage = formats.Encoding.codePage;
  described.mark = formats.Encoding.mark;
  return described;
}

bool Program::OfferRestore() {
  if (ports_.journal == nullptr) return false;
  const auto restored = OfferLeftDocuments(*ports_.journal, ports_.messages, strings);
  if (!restored) return false;
  RestoreDocument(restored->document);
  journal.Adopt(restored->journal, restored->bytes);
  return true;
}

void Program::RestoreDocument(const JournalDocument& restored) {
  files.closeTools();
  document.SubtitlePath = restored.path;
  capture.Reset();
  commands.RestoreSeparator(restored.separator);
  panel.ResetGrid(true);
  ruleReport.ResetRuleReport();
  list.Replace(1, list.Rows() - 1, restored.captions);
  formats.CurrentFormatIndex = static_cast<std::uint8_t>(std::max(catalogue.IndexOf(restored.format), 0));
  formats.CurrentFps = restored.fps;
  formats.Encoding = {restored.codePage, restored.mark};
  files.DocumentOpened();
  // Its file, if it has one, holds less.
  history.Begin(DocumentBaseline::None);
  document.DocModified = true;
  shell.ResetControls();
  list.SetRow(restored.selected, true);
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
  ApplyLanguage();
  panel.ResetGrid(false);
  shell.ResetControls();
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
  const bool restored = OfferRestore();
  if (path.empty()) return;
  if (!restored) return files.OpenStartFile(path);
  // A text, or what would be taken for one, must not take the place of the document that has just come back.
  if (const FileKind kind = KindOfFile(path); kind != FileKind::Subtitle) files.OpenAs(kind, path);
}

std::int16_t Program::ChangeLanguage(std::size_t row) {
  languages.Select(row);
  const std::int16_t percent = languages.LoadLanguageStrings(false);
  LanguageChanged();
  if (PlayerMissing()) start.ShowMissing(strings, environment_.missingPlayer, languages.IsRightToLeft());
  ApplyLanguage();
  return percent;
}

void Program::ApplyLanguage() {
  notices.ApplyLanguage();
  shell.ApplyMainWindowLanguage(languages.IsRightToLeft());
  undo.ShowItems();
  title.Show();
  for (Label* label : {&sub.lblShadow, &sub.lblSub}) label->SetRightToLeft(languages.IsRightToLeft());
  for (ToolForm* form : ToolForms()) {
    if (form->Loaded()) form->ApplyLanguage(languages.IsRightToLeft());
  }
}

void Program::SetTextFileLabel(TextView text) { window.lblTextFile.SetText(text); }

void Program::ClearVideoFileLabel() { window.lblVideoFile.SetText({}); }

void Program::RefreshStatusLabels() { shell.RefreshFileLabels(); }

void Program::Yield() { ports_.events.Yield(); }

void Program::ImportBegins() {
  for (MenuItem* item : {&window.mnuNew, &window.mnuOpenText, &window.mnuOpenVideo, &window.mnuClose, &window.mnuSave,
                         &window.mnuSaveAs}) {
    item->SetEnabled(false);
  }
  // What these change is not there yet.
  for (MenuItem* menu : {&window.mnuEdit, &window.mnuFormat, &window.mnuTools}) menu->SetEnabled(false);
  window.cmdCancel.SetVisible(true);
  window.cmdCancel.SetEnabled(true);
}

void Program::ImportEnds() {
  for (MenuItem* item : {&window.mnuNew, &window.mnuOpenText, &window.mnuOpenVideo}) item->SetEnabled(true);
  for (MenuItem* menu : {&window.mnuEdit, &window.mnuFormat, &window.mnuTools}) menu->SetEnabled(true);
  window.mnuClose.SetEnabled(document.HasDocument() || document.HasVideo());
  window.cmdCancel.SetVisible(false);
}

std::int32_t Program::MediaSeconds() const { return static_cast<std::int32_t>(ports_.player.Duration()); }

void Program::SavedAsUtf8(const DocumentEncoding& lacking) {
  const Text name = EncodingName(lacking);
  notices.Tell(Message::SavedAsUtf8, name);
  // Nobody sees the strip of a bar that is off.
  if (!notices.Seen()) {
    ports_.messages.Show(
        {document.SubtitlePath + u"\r\n\r\n" + Fill(strings[Message::SavedAsUtf8], name), BoxIcon::Information});
  }
}

void Program::ConvertFromUtf8() {
  const Text question = Fill(strings[Message::ConversionQuestion], u"UTF-8");
  if (ports_.messages.Show({question, BoxIcon::Question, BoxButtons::YesNo,
                            strings[Message::ConvertFrom] + u" UTF-8"}) != BoxAnswer::Yes) {
    return;
  }
  const EditScope scope(list, EditKind::Convert);
  ConvertCaptionsFromUtf8(list, encodings);
  window.txtSub.SetText(list.GetCaptionText(list.Selected(), true));
}

}  // namespace cuewright
