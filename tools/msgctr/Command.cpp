#include "Command.h"

#include <algorithm>
#include <cstdio>

namespace msgctr {

namespace {
std::vector<Family>& registry()
{
    static std::vector<Family> families;
    return families;
}
} // namespace

FamilyRegistration::FamilyRegistration(const QString& name, const QString& summary, std::vector<Verb> verbs)
{
    for (Family& f : registry()) {
        if (f.name == name) {
            if (f.summary.isEmpty())
                f.summary = summary;
            f.verbs.insert(f.verbs.end(), verbs.begin(), verbs.end());
            return;
        }
    }
    registry().push_back(Family{name, summary, std::move(verbs)});
}

std::vector<Family> allFamilies()
{
    std::vector<Family> families = registry();
    std::sort(families.begin(), families.end(), [](const Family& a, const Family& b) { return a.name < b.name; });
    return families;
}

void out(const QString& line)
{
    std::fputs(line.toLocal8Bit().constData(), stdout);
    std::fputc('\n', stdout);
}

int usageError(const QString& message)
{
    std::fprintf(stderr, "msgctr: %s\n", message.toLocal8Bit().constData());
    return ExitUsage;
}

int failure(const QString& message)
{
    std::fprintf(stderr, "msgctr: %s\n", message.toLocal8Bit().constData());
    return ExitFailed;
}

bool takeOption(QStringList* args, const QString& name, QString* value, bool* given, int* status)
{
    if (given)
        *given = false;
    const qsizetype at = args->indexOf(name);
    if (at < 0)
        return true;
    if (at + 1 >= args->size()) {
        *status = usageError(QStringLiteral("%1 needs a value").arg(name));
        return false;
    }
    *value = args->at(at + 1);
    args->remove(at, 2);
    if (args->contains(name)) {
        *status = usageError(QStringLiteral("%1 given twice").arg(name));
        return false;
    }
    if (given)
        *given = true;
    return true;
}

bool parseInteger(const QString& text, qlonglong* value)
{
    bool ok = false;
    const QString t = text.trimmed();
    if (t.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        *value = t.mid(2).toLongLong(&ok, 16);
    else
        *value = t.toLongLong(&ok, 10);
    return ok && t == text;
}

} // namespace msgctr
