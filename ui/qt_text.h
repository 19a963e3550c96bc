#pragma once

#include <QString>

#include "text/text.h"

namespace cuewright {

inline QString ToQt(TextView text) { return QStringView(text).toString(); }

inline Text FromQt(const QString& text) { return text.toStdU16String(); }

}  // namespace cuewright
