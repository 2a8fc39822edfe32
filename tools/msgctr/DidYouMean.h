// The "did you mean" hint for a mistyped verb, family or option.
#pragma once

#include <QString>
#include <QStringList>

namespace msgctr {

// " (did you mean 'X'?)" for the candidate closest to word, when one is close enough; else empty.
QString didYouMean(const QString& word, const QStringList& candidates);

} // namespace msgctr
