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

// A family of verbs. Several files may register verbs under one family name (the text family gathers
// string, segment and time verbs); they are merged in registration order.
struct Family {
    QString name;
    QString summary;
    std::vector<Verb> verbs;
};

// Registers verbs at static-initialisation time: `const FamilyRegistration reg(name, summary, {...});`.
// The first non-empty summary of a family is the one shown.
class FamilyRegistration {
public:
    FamilyRegistration(const QString& name, const QString& summary, std::vector<Verb> verbs);
};

// Every family, sorted by name.
std::vector<Family> allFamilies();

// Output helpers: results to stdout, errors to stderr. Both return the exit status to hand back.
void out(const QString& line);
int usageError(const QString& message);
int failure(const QString& message);

// Removes "--name VALUE" from args. False, with a usage error's exit status in *status, when the option
// has no value or is given twice. *given (may be null) tells whether it was there.
bool takeOption(QStringList* args, const QString& name, QString* value, bool* given, int* status);

// Parses a whole decimal (or 0x-prefixed hexadecimal) number; false on anything else.
bool parseInteger(const QString& text, qlonglong* value);

} // namespace msgctr
