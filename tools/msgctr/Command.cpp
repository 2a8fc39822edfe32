#include "Command.h"

#include <cstdio>

namespace msgctr {

namespace {
std::vector<const Family*>& registry()
{
    static std::vector<const Family*> families;
    return families;
}
} // namespace

Family::Family(const QString& name, const QString& summary, std::vector<Verb> verbs)
    : m_name(name), m_summary(summary), m_verbs(std::move(verbs))
{
    registry().push_back(this);
}

const std::vector<const Family*>& Family::all()
{
    return registry();
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
