#include "Verb.h"

#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace msgctr {

Arg Arg::optional() const
{
    Arg a = *this;
    a.isOptional = true;
    return a;
}

Arg Arg::repeated() const
{
    Arg a = *this;
    a.isRepeated = true;
    return a;
}

Arg Arg::stdinDash() const
{
    Arg a = *this;
    a.readsStdin = true;
    return a;
}

Arg Arg::as(const QString& shownValueName) const
{
    Arg a = *this;
    a.valueName = shownValueName;
    return a;
}

namespace {

Arg declare(const QString& name, Arg::Kind kind, const QString& help, const QString& valueName)
{
    Arg a;
    a.name = name;
    a.kind = kind;
    a.help = help;
    a.valueName = valueName;
    return a;
}

} // namespace

Arg text(const QString& name, const QString& help)
{
    return declare(name, Arg::Text, help, QStringLiteral("TEXT"));
}

Arg integer(const QString& name, qlonglong min, qlonglong max, const QString& help)
{
    Arg a = declare(name, Arg::Integer, help, QStringLiteral("N"));
    a.min = min;
    a.max = max;
    return a;
}

Arg boolean(const QString& name, const QString& help)
{
    return declare(name, Arg::Boolean, help, QStringLiteral("BOOL"));
}

Arg choice(const QString& name, const QStringList& choices, const QString& help)
{
    Arg a = declare(name, Arg::Choice, help, choices.join(QLatin1Char('|')));
    a.choices = choices;
    return a;
}

Arg flag(const QString& name, const QString& help)
{
    return declare(name, Arg::Flag, help, QString());
}

bool Args::has(const QString& name) const
{
    return m_values.contains(name);
}

QString Args::text(const QString& name) const
{
    const QStringList values = m_values.value(name);
    return values.isEmpty() ? QString() : values.first();
}

qlonglong Args::number(const QString& name) const
{
    return text(name).toLongLong(nullptr, 0);
}

bool Args::boolean(const QString& name) const
{
    const QString value = text(name);
    return has(name) && (value.isEmpty() || value == QLatin1String("true"));
}

QStringList Args::texts(const QString& name) const
{
    return m_values.value(name);
}

void Args::set(const QString& name, const QStringList& values)
{
    m_values.insert(name, values);
}

Output& Output::field(const QString& key, const QJsonValue& value)
{
    m_json.insert(key, value);
    m_textKeys.removeAll(key);
    m_textKeys.append(key);
    return *this;
}

Output& Output::jsonOnly(const QString& key, const QJsonValue& value)
{
    m_json.insert(key, value);
    return *this;
}

namespace {

QString scalarText(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact)).mid(1).chopped(1);
    case QJsonValue::String:
        return value.toString();
    default:
        return QStringLiteral("(none)");
    }
}

void appendLines(QStringList* lines, const QString& key, const QJsonValue& value)
{
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            appendLines(lines, key + QLatin1Char('.') + it.key(), it.value());
        return;
    }
    if (value.isArray()) {
        const QJsonArray array = value.toArray();
        const bool plain = std::none_of(array.begin(), array.end(),
                                        [](const QJsonValue& v) { return v.isObject() || v.isArray(); });
        if (plain) {
            QStringList items;
            for (const QJsonValue& v : array)
                items.append(scalarText(v));
            lines->append(key + QStringLiteral(": ") + (items.isEmpty() ? QStringLiteral("(none)") : items.join(QStringLiteral(", "))));
            return;
        }
        for (qsizetype i = 0; i < array.size(); ++i)
            appendLines(lines, QStringLiteral("%1[%2]").arg(key).arg(i), array.at(i));
        return;
    }
    lines->append(key + QStringLiteral(": ") + scalarText(value));
}

} // namespace

QString Output::text() const
{
    QStringList lines;
    for (const QString& key : m_textKeys)
        appendLines(&lines, key, m_json.value(key));
    return lines.isEmpty() ? QString() : lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

Verb::Verb(const QString& verbName, const QString& verbSummary, Run verbRun)
    : name(verbName), summary(verbSummary), run(std::move(verbRun))
{
}

Verb& Verb::arg(const Arg& declaration)
{
    args.push_back(declaration);
    return *this;
}

Verb& Verb::reads()
{
    root = RootUse::Reads;
    return *this;
}

Verb& Verb::writes()
{
    root = RootUse::Writes;
    writingArg.clear();
    return *this;
}

Verb& Verb::writesWhenGiven(const QString& argName)
{
    root = RootUse::Writes;
    writingArg = argName;
    return *this;
}

Verb& Verb::fields(const QString& documentedFields)
{
    jsonFields = documentedFields;
    return *this;
}

Verb& Verb::details(const QString& help)
{
    moreHelp = help;
    return *this;
}

QString Verb::usage() const
{
    QStringList words;
    for (const Arg& a : args) {
        if (a.isOption()) {
            words.append(a.kind == Arg::Flag ? QStringLiteral("[%1]").arg(a.name)
                                             : QStringLiteral("[%1 %2]").arg(a.name, a.valueName));
        }
    }
    QString positional;
    int open = 0;
    for (const Arg& a : args) {
        if (a.isOption())
            continue;
        QString word = a.isRepeated ? a.name + QStringLiteral("...") : a.name;
        if (a.isOptional) {
            word.prepend(QLatin1Char('['));
            ++open;
        }
        positional += (positional.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    positional += QString(open, QLatin1Char(']'));
    if (!positional.isEmpty())
        words.append(positional);
    return words.join(QLatin1Char(' '));
}

namespace {

std::vector<Family>& registry()
{
    static std::vector<Family> families;
    return families;
}

} // namespace

VerbRegistration::VerbRegistration(const QString& family, const QString& summary, std::vector<Verb> verbs)
{
    std::vector<Family>& families = registry();
    auto it = std::find_if(families.begin(), families.end(), [&](const Family& f) { return f.name == family; });
    if (it == families.end()) {
        std::sort(verbs.begin(), verbs.end(), [](const Verb& a, const Verb& b) { return a.name < b.name; });
        families.push_back(Family{family, summary, std::move(verbs)});
    } else {
        if (it->summary.isEmpty())
            it->summary = summary;
        it->verbs.insert(it->verbs.end(), verbs.begin(), verbs.end());
        // Several files add to a family, in an order the linker chooses: sorting keeps help texts stable.
        std::sort(it->verbs.begin(), it->verbs.end(), [](const Verb& a, const Verb& b) { return a.name < b.name; });
    }
    std::sort(families.begin(), families.end(), [](const Family& a, const Family& b) { return a.name < b.name; });
}

const std::vector<Family>& allFamilies()
{
    return registry();
}

namespace {

void toStderr(const QString& message)
{
    std::fprintf(stderr, "msgctr: %s\n", message.toLocal8Bit().constData());
}

} // namespace

int fail(const QString& message)
{
    toStderr(message);
    return ExitFailed;
}

int usage(const QString& message)
{
    toStderr(message);
    return ExitUsage;
}

} // namespace msgctr
