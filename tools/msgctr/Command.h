// The command table of msgctr: each family (text, platform, tapi, ...) lives in its own file and registers
// its verbs with a static Family object, so adding a family touches no other file.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace msgctr {

enum ExitStatus { ExitOk = 0, ExitFailed = 1, ExitUsage = 2 };

struct Verb {
    QString name;
    QString usage;    // arguments after the verb, e.g. "NUMBER [WIDTH]"
    QString summary;  // one line
    std::function<int(const QStringList& args)> run;
};

class Family {
public:
    Family(const QString& name, const QString& summary, std::vector<Verb> verbs);

    const QString& name() const { return m_name; }
    const QString& summary() const { return m_summary; }
    const std::vector<Verb>& verbs() const { return m_verbs; }

    static const std::vector<const Family*>& all();

private:
    QString m_name;
    QString m_summary;
    std::vector<Verb> m_verbs;
};

// Output helpers: results to stdout, errors to stderr. Both return the exit status to hand back.
void out(const QString& line);
int usageError(const QString& message);
int failure(const QString& message);

// Parses a whole decimal (or 0x-prefixed hexadecimal) number; false on anything else.
bool parseInteger(const QString& text, qlonglong* value);

} // namespace msgctr
