#include "forms/wizard_parts.h"

#include "core/paths.h"
#include "core/runtime_error.h"
#include "external/common_dialogs.h"
#include "forms/web.h"

namespace cuewright {
namespace {

constexpr TextView kFolderKey = u"VDPATH";
constexpr TextView kRunnerFolder = u"vdrun/";

}  // namespace

Text WizardTool::TakeStored() {
  Text folder = p_.store.GetSetting(kMainSection, kFolderKey, p_.folders.AppFolder + Text(kRunnerFolder));
  Take(folder);
  return folder;
}

const VideoTool& WizardTool::Take(TextView folder) { return tool_ = FindVideoTool(p_.ports.files, WithSlash(folder)); }

void WizardTool::Store(TextView folder) {
  Take(folder);
  p_.store.SaveSetting(kMainSection, kFolderKey, folder);
}

Text WizardTool::AskFolder() {
  Text folder = BrowseForFolder(p_.ports.pickers, p_.strings[Message::SelectVirtualDubFolder]);
  if (folder.size() <= 1) return {};
  if (FindVideoTool(p_.ports.files, folder).kind != VideoTool::Kind::None) return folder;
  const MessageBox box{p_.strings[Message::VirtualDubNotFound], BoxIcon::Warning, BoxButtons::YesNo};
  if (p_.ports.messages.Show(box) == BoxAnswer::Yes) OpenDownload(Download::Tool);
  return {};
}

bool WizardTool::Check(TextView folder) {
  if (folder.empty()) {
    p_.ports.messages.Show({p_.strings[Message::SpecifyLocation], BoxIcon::Warning});
    return false;
  }
  if (Take(folder).kind != VideoTool::Kind::None) return true;
  p_.ports.messages.Show({ReplaceFirst(p_.strings[Message::ProgramNotFound], u"%FN", tool_.path), BoxIcon::Error});
  return false;
}

void WizardTool::OpenDownload(Download program) {
  OpenWebPage(p_.ports.desktop, u"downloads.php?cid=" + Decimal(static_cast<int>(program)), p_.options.language);
}

void WizardTool::StartWine(const std::vector<Text>& command) {
  if (p_.processes == nullptr) return;
  CarryOn step;
  step([&] { p_.processes->Start(u"wine", command, {.outlives = true}); });
}

std::unique_ptr<ChildProcess> WizardTool::Start(TextView script, TextView folder, bool minimised) {
  std::unique_ptr<ChildProcess> child;
  if (p_.processes == nullptr) return child;
  const ToolCommand command = CommandFor(tool_, script);
  StartOptions options{.folder = Text(folder), .outlives = true, .holds = FolderOfPath(script)};
  if (minimised) options.variables.emplace_back(u"VDRUN_MINIMISED", u"1");
  CarryOn step;
  step([&] { child = p_.processes->Start(command.program, command.arguments, options); });
  return child;
}

}  // namespace cuewright
