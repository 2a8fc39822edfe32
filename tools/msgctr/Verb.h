// How a msgctr verb is declared. A family of verbs is one file that registers its declarations once:
//
//   int cbState(const Args& args, Output& out) { ... }
//
//   const VerbRegistration registration(QStringLiteral("tapi"), QStringLiteral("the simulated modem and SIM"), {
//       Verb(QStringLiteral("cb-state"), QStringLiteral("get or set the cell-broadcast state byte"), cbState)
//           .arg(integer(QStringLiteral("STATE"), 0, 255, QStringLiteral("the new state")).optional())
//           .writesWhenGiven(QStringLiteral("STATE"))
//           .fields(QStringLiteral("cb_state (number)")),
//   });
//
// and is listed in msgctr_sources (tools/msgctr/CMakeLists.txt). Several files may add verbs to one family.
//
// One parser reads every command line against these declarations: options anywhere before "--", "--opt=value",
// numbers range-checked, booleans in one set of words, "-" for a text read from standard input, unknown names
// refused with a "did you mean" hint. A verb body therefore only sees well-formed values; it writes its results
// to the Output (shown as "key: value" lines, or as one JSON object with --json) and reports failures with
// fail(), usage(), tapiFailure() or libraryFailure() (the operation, the code and its meaning). Before a verb that
// declares reads() or writes() runs, the host root is checked: it must be a folder, and one the tool can write in
// when the verb writes. The help texts, the manual page and the completion script are made from the same
// declarations.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace msgctr {

enum ExitStatus { ExitOk = 0, ExitFailed = 1, ExitUsage = 2 };

// A positional argument (name in capitals, e.g. "NUMBER") or an option (name with "--", e.g. "--max").
struct Arg {
    enum Kind { Text, Integer, Boolean, Choice, Flag };

    QString name;
    Kind kind = Text;
    QString help;
    QString valueName; // what an option's value is called in help texts ("N", "FILE")
    qlonglong min = 0;
    qlonglong max = 0;
    QStringList choices;
    bool isOptional = false; // positional: may be left out (only the last ones may)
    bool isRepeated = false; // positional, last: takes every remaining word
    bool readsStdin = false; // text: "-" stands for the whole of standard input

    Arg optional() const;
    Arg repeated() const;
    Arg stdinDash() const;
    Arg as(const QString& shownValueName) const;
    bool isOption() const { return name.startsWith(QLatin1String("--")); }
};

Arg text(const QString& name, const QString& help);
Arg integer(const QString& name, qlonglong min, qlonglong max, const QString& help);
// true/false, on/off, yes/no, 1/0 in any case.
Arg boolean(const QString& name, const QString& help);
Arg choice(const QString& name, const QStringList& choices, const QString& help);
// An option without a value.
Arg flag(const QString& name, const QString& help);

// The values of one command line, by argument or option name. Only declared names may be asked for.
class Args {
public:
    bool has(const QString& name) const;
    QString text(const QString& name) const;      // texts and choices, as given
    qlonglong number(const QString& name) const;  // integers, within the declared range
    bool boolean(const QString& name) const;      // booleans; flags: whether given
    QStringList texts(const QString& name) const; // a repeated argument

    void set(const QString& name, const QStringList& values);

private:
    QMap<QString, QStringList> m_values;
};

// What a verb shows. Each field is one "key: value" line for people (objects as "key.member: value", lists of
// objects as "key[0].member: value", lists of plain values joined by ", ", booleans as true/false, null as
// "(none)"); with --json the fields are the members of one JSON object.
class Output {
public:
    Output& field(const QString& key, const QJsonValue& value);
    // Also in the JSON object, but not shown as text: details only scripts want.
    Output& jsonOnly(const QString& key, const QJsonValue& value);

    QJsonObject json() const { return m_json; }
    QString text() const;
    bool isEmpty() const { return m_json.isEmpty(); }

private:
    QJsonObject m_json;
    QStringList m_textKeys;
};

// Where a verb keeps its state: nowhere, read from the host root, or written under it (always, or only when
// the named argument is given).
enum class RootUse { None, Reads, Writes };

struct Verb {
    using Run = std::function<int(const Args&, Output&)>;

    Verb(const QString& name, const QString& summary, Run run);
    Verb& arg(const Arg& declaration);
    Verb& reads();
    Verb& writes();
    Verb& writesWhenGiven(const QString& argName);
    Verb& fields(const QString& jsonFields); // documents the JSON fields, e.g. "number (text), name (text)"
    Verb& details(const QString& moreHelp);  // further lines of help

    QString name;
    QString summary;
    Run run;
    std::vector<Arg> args;
    RootUse root = RootUse::None;
    QString writingArg;
    QString jsonFields;
    QString moreHelp;

    QString usage() const; // e.g. "[--max N] TEXT"
};

// A verb with an empty name is the family's own command ("msgctr status"): then it is the family's only verb.
struct Family {
    QString name;
    QString summary;
    std::vector<Verb> verbs;

    const Verb* command() const { return verbs.size() == 1 && verbs.front().name.isEmpty() ? &verbs.front() : nullptr; }
};

// Adds verbs to a family at start-up; the first non-empty summary of a family is the one shown.
class VerbRegistration {
public:
    VerbRegistration(const QString& family, const QString& summary, std::vector<Verb> verbs);
};

// Every family and its verbs, sorted by name.
const std::vector<Family>& allFamilies();

// A failure: "msgctr: MESSAGE" on standard error; returns ExitFailed.
int fail(const QString& message);
// Bad input found by the verb itself: "msgctr: MESSAGE" on standard error; returns ExitUsage.
int usage(const QString& message);
// A platform operation or library call that answered a result code: names the operation, the code and what
// it means, e.g. "TAPI_CB_SetLanguage failed: result 22 (invalid argument)". Returns ExitFailed.
int tapiFailure(const QString& operation, int tapiResult);
int libraryFailure(const QString& operation, int msgctrErrcode);

} // namespace msgctr
