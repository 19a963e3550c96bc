#include "ui/toolkit_texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace cuewright {
namespace {

/// The names by which the toolkit knows the languages; English is its own.
constexpr std::pair<TextView, const char*> kNames[] = {
    {u"SPANISH", "es"},       {u"DUTCH", "nl"},    {u"GREEK", "el"},
    {u"ITALIAN", "it"},       {u"FRENCH", "fr"},   {u"PORTUGUESE_BR", "pt_BR"},
    {u"PORTUGUESE", "pt_PT"}, {u"CATALAN", "ca"},  {u"SERBIAN", "sr"},
    {u"HUNGARIAN", "hu"},     {u"ROMANIAN", "ro"}, {u"FINNISH", "fi"},
    {u"PERSIAN", "fa"},       {u"ARABIC", "ar"},   {u"DANISH", "da"},
    {u"BULGARIAN", "bg"},     {u"KAZAKH", "kk"},   {u"INDONESIAN", "id"},
    {u"SWEDISH", "sv"},       {u"THAI", "th"},     {u"GERMAN", "de"},
    {u"JAPANESE", "ja"},      {u"RUSSIAN", "ru"},  {u"CROATIAN", "hr"}};

}  // namespace

ToolkitTexts::~ToolkitTexts() {
  if (!texts_.isEmpty() && QCoreApplication::instance() != nullptr) QCoreApplication::removeTranslator(&texts_);
}

void ToolkitTexts::Use(TextView language) {
  if (!texts_.isEmpty()) QCoreApplication::removeTranslator(&texts_);
  QString name = "none";
  for (const auto& [own, toolkit] : kNames) {
    if (language == own) name = toolkit;
  }
  const bool found = texts_.load("qtbase_" + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  if (found) QCoreApplication::installTranslator(&texts_);
}

}  // namespace cuewright
