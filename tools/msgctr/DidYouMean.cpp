#include "DidYouMean.h"

#include <algorithm>
#include <vector>

namespace msgctr {
namespace {

// Edits to turn a into b: insertions, deletions, substitutions and swaps of neighbours, each counting one.
int editDistance(const QString& a, const QString& b)
{
    const qsizetype rows = a.size() + 1;
    const qsizetype columns = b.size() + 1;
    std::vector<int> d(size_t(rows * columns));
    const auto at = [&](qsizetype i, qsizetype j) -> int& { return d[size_t(i * columns + j)]; };
    for (qsizetype i = 0; i < rows; ++i)
        at(i, 0) = int(i);
    for (qsizetype j = 0; j < columns; ++j)
        at(0, j) = int(j);
    for (qsizetype i = 1; i < rows; ++i) {
        for (qsizetype j = 1; j < columns; ++j) {
            const int cost = a.at(i - 1) == b.at(j - 1) ? 0 : 1;
            at(i, j) = std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, at(i - 1, j - 1) + cost});
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1))
                at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
        }
    }
    return at(rows - 1, columns - 1);
}

} // namespace

QString didYouMean(const QString& word, const QStringList& candidates)
{
    // A third of the word may be wrong, at least one character: enough for typos, not for other words. Words
    // this short have too many neighbours to guess from.
    if (word.size() < 3)
        return QString();
    const int allowed = std::max(1, int(word.size() / 3));
    QString best;
    int bestDistance = allowed + 1;
    for (const QString& candidate : candidates) {
        const int d = candidate.startsWith(word) && word.size() >= 2 ? 1 : editDistance(word, candidate);
        if (d < bestDistance) {
            best = candidate;
            bestDistance = d;
        }
    }
    return best.isEmpty() ? QString() : QStringLiteral(" (did you mean '%1'?)").arg(best);
}

} // namespace msgctr
