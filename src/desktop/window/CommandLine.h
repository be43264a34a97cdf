#pragma once

#include <QStringList>

namespace kvi {

// The words of a command line, split at blanks outside of double quotes; the quotes go. Nothing is
// escaped.
QStringList SplitCommandLine(const QString& line);

}  // namespace kvi
