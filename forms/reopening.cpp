#include "forms/reopening.h"

#include "core/finish_first.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

/// Bytes of a file that are enough to show its first lines.
constexpr std::size_t kHead = 4096;

}  // namespace

Reopening::Reopening(Workbench bench, DocumentFormats formats, DocumentSession& session, DocumentFiles& documentFiles,
                     const Files& files)
    : dialog(bench.strings),
      bench_(bench),
      formats_(formats),
      session_(session),
      documentFiles_(documentFiles),
      files_(files) {
  bench_.window.mnuFile.AboutToShow.Connect([this] { ShowItem(); });
  bench_.window.mnuReopen.Clicked.Connect([this] { Reopen(); });
}

void Reopening::ShowItem() {
  bench_.window.mnuReopen.SetVisible(bench_.options.manner.ChoosesEncodings());
  bench_.window.mnuReopen.SetEnabled(bench_.document.HasFile() && !bench_.document.FileInWork);
}

void Reopening::Reopen() {
  if (!bench_.document.HasFile() || bench_.document.FileInWork) return;
  session_.CloseTools();
  if (!documentFiles_.PromptForSave()) return;
  const Text path = bench_.document.SubtitlePath;
  std::string head;
  CarryOn step;
  step([&] { head = files_.Read(path, kLargestTextFile).substr(0, kHead); });
  dialog.Open(std::move(head), formats_.state.Encoding, bench_.window.RightToLeft());
  if (!dialog.Result() || !HasFormatAs(dialog.Chosen())) return;
  formats_.importer.ReadAs(dialog.Chosen().codePage);
  FinishFirst reading;
  reading([&] { documentFiles_.OpenSubtitleFile(path); });
  formats_.importer.ReadAs({});
  reading.Rethrow();
}

bool Reopening::HasFormatAs(const DocumentEncoding& encoding) {
  const FormatState state = formats_.state;
  const FormatDefinition definition = formats_.loader.Definition();
  formats_.importer.ReadAs(encoding.codePage);
  const bool known = formats_.importer.SettleFormat(bench_.document.SubtitlePath).has_value();
  formats_.importer.ReadAs({});
  formats_.state = state;
  formats_.loader.Definition() = definition;
  return known;
}

}  // namespace cuewright
