#include "CommandLine.h"

#include "DidYouMean.h"
#include "Documentation.h"
#include "Verb.h"

#include "ZorHostControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace msgctr {
namespace {

const QStringList kGlobalOptionNames = {QStringLiteral("--root"), QStringLiteral("--json"), QStringLiteral("--help"),
                                        QStringLiteral("--version")};

// Everything for stdout goes through here, so that a failed write (a full disk, a closed pipe) is an error.
int writeOut(const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    if (std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout) != size_t(bytes.size()) || std::fflush(stdout) != 0)
        return fail(QStringLiteral("cannot write the output: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return ExitOk;
}

void writeErr(const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stderr);
}

bool isNumber(const QString& word)
{
    bool ok = false;
    word.toLongLong(&ok, 10);
    return ok;
}

// Words that look like options: "--x", and "-x" unless it is a negative number or "-" itself.
bool looksLikeOption(const QString& word)
{
    if (word.startsWith(QLatin1String("--")))
        return word.size() > 2;
    return word.startsWith(QLatin1Char('-')) && word.size() > 1 && !isNumber(word);
}

bool parseInteger(const QString& text, qlonglong* value)
{
    bool ok = false;
    const bool negative = text.startsWith(QLatin1Char('-'));
    const QString digits = negative ? text.mid(1) : text;
    if (digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) && digits.size() > 2)
        *value = digits.mid(2).toLongLong(&ok, 16);
    else if (!digits.isEmpty() && digits.at(0).isDigit())
        *value = digits.toLongLong(&ok, 10);
    if (negative)
        *value = -*value;
    return ok;
}

bool parseBooleanWord(const QString& text, bool* value)
{
    const QString t = text.toLower();
    for (const char* word : {"true", "on", "yes", "1"}) {
        if (t == QLatin1String(word)) {
            *value = true;
            return true;
        }
    }
    for (const char* word : {"false", "off", "no", "0"}) {
        if (t == QLatin1String(word)) {
            *value = false;
            return true;
        }
    }
    return false;
}

bool readStdin(QString* text)
{
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return false;
    QByteArray bytes = in.readAll();
    // A shell pipe ends the text with a line break that is not part of it.
    if (bytes.endsWith('\n'))
        bytes.chop(bytes.endsWith("\r\n") ? 2 : 1);
    *text = QString::fromUtf8(bytes);
    return true;
}

struct Invocation {
    QString command; // "tapi smsc", for messages
    const Verb* verb = nullptr;
    Args args;
};

// Checks one value against its declaration and stores it in normal form (numbers in decimal, booleans as
// true/false). A usage error's message in *error otherwise.
bool acceptValue(const Arg& a, const QString& given, QString* stored, QString* error)
{
    switch (a.kind) {
    case Arg::Integer: {
        qlonglong value = 0;
        if (!parseInteger(given, &value) || value < a.min || value > a.max) {
            *error = QStringLiteral("%1 must be a number from %2 to %3, not '%4'").arg(a.name).arg(a.min).arg(a.max).arg(given);
            return false;
        }
        *stored = QString::number(value);
        return true;
    }
    case Arg::Boolean: {
        bool value = false;
        if (!parseBooleanWord(given, &value)) {
            *error = QStringLiteral("%1 must be true or false (or on/off, yes/no, 1/0), not '%2'").arg(a.name, given);
            return false;
        }
        *stored = value ? QStringLiteral("true") : QStringLiteral("false");
        return true;
    }
    case Arg::Choice:
        if (!a.choices.contains(given)) {
            *error = QStringLiteral("%1 must be one of %2, not '%3'%4")
                         .arg(a.name, a.choices.join(QStringLiteral(", ")), given, didYouMean(given, a.choices));
            return false;
        }
        *stored = given;
        return true;
    case Arg::Text:
        if (a.readsStdin && given == QLatin1String("-")) {
            if (!readStdin(stored)) {
                *error = QStringLiteral("cannot read %1 from standard input").arg(a.name);
                return false;
            }
            return true;
        }
        *stored = given;
        return true;
    case Arg::Flag:
        break;
    }
    *stored = given;
    return true;
}

// The command line's words after the verb, against the verb's declaration.
int bindArguments(Invocation* call, const QList<std::pair<QString, QString>>& optionValues, const QStringList& positional)
{
    const Verb& verb = *call->verb;
    const QString seeHelp = QStringLiteral(" (see msgctr %1 --help)").arg(call->command);
    for (const auto& [name, given] : optionValues) {
        const Arg& a = *std::find_if(verb.args.begin(), verb.args.end(), [&](const Arg& x) { return x.name == name; });
        QString stored;
        QString error;
        if (a.kind != Arg::Flag && !acceptValue(a, given, &stored, &error))
            return usage(error);
        call->args.set(name, {stored});
    }
    qsizetype next = 0;
    for (const Arg& a : verb.args) {
        if (a.isOption())
            continue;
        if (next >= positional.size()) {
            if (!a.isOptional)
                return usage(QStringLiteral("%1 needs %2%3").arg(call->command, a.name, seeHelp));
            break;
        }
        QStringList values;
        const qsizetype last = a.isRepeated ? positional.size() : next + 1;
        for (; next < last; ++next) {
            QString stored;
            QString error;
            if (!acceptValue(a, positional.at(next), &stored, &error))
                return usage(error);
            values.append(stored);
        }
        call->args.set(a.name, values);
    }
    if (next < positional.size()) {
        const bool none = std::none_of(verb.args.begin(), verb.args.end(), [](const Arg& a) { return !a.isOption(); });
        return usage(none ? QStringLiteral("%1 takes no arguments, not '%2'%3").arg(call->command, positional.at(next), seeHelp)
                          : QStringLiteral("%1: one argument too many: '%2'%3").arg(call->command, positional.at(next), seeHelp));
    }
    return ExitOk;
}

QString osError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

// The root must be a folder; a verb that writes must be able to write in it (checked by writing, which also
// catches read-only file systems and folders the user cannot enter).
int checkRoot(const Verb& verb, const Args& args, bool rootGiven)
{
    if (!rootGiven && qEnvironmentVariableIsSet("ZORHOST_ROOT") && qEnvironmentVariableIsEmpty("ZORHOST_ROOT"))
        return usage(QStringLiteral("ZORHOST_ROOT is empty: name the host root folder, or unset it"));
    const QString root = ZorHost::root();
    const QFileInfo info(root);
    if (!info.isDir()) {
        if (info.exists())
            return fail(QStringLiteral("the host root %1 is not a folder").arg(root));
        if (!QDir().mkpath(root))
            return fail(QStringLiteral("cannot create the host root %1: %2").arg(root, osError()));
    }
    const bool writing = verb.root == RootUse::Writes && (verb.writingArg.isEmpty() || args.has(verb.writingArg));
    if (!writing)
        return ExitOk;
    QByteArray probe = QFile::encodeName(root + QStringLiteral("/.msgctr-write-test-XXXXXX"));
    const int fd = mkstemp(probe.data());
    if (fd < 0)
        return fail(QStringLiteral("cannot write in the host root %1: %2").arg(root, osError()));
    ::close(fd);
    ::unlink(probe.constData());
    return ExitOk;
}

const Family* findFamily(const QString& name)
{
    for (const Family& f : allFamilies())
        if (f.name == name)
            return &f;
    return nullptr;
}

} // namespace

int runCommandLine(const QStringList& words)
{
    bool json = false;
    bool help = false;
    bool version = false;
    bool rootGiven = false;
    bool endOfOptions = false;
    const Family* family = nullptr;
    Invocation call;
    QStringList options;
    QList<std::pair<QString, QString>> optionValues;
    QStringList positional;

    if (words.size() == 1 && words.first() == QLatin1String("--manual-page"))
        return writeOut(manualPage());
    if (words.size() == 1 && words.first() == QLatin1String("--bash-completion"))
        return writeOut(bashCompletion());

    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString word = words.at(i);
        if (!endOfOptions && word == QLatin1String("--")) {
            endOfOptions = true;
            continue;
        }
        if (endOfOptions || !looksLikeOption(word)) {
            if (!family) {
                family = findFamily(word);
                if (!family) {
                    QStringList names;
                    for (const Family& f : allFamilies())
                        names.append(f.name);
                    return usage(QStringLiteral("unknown family '%1'%2 (see msgctr --help)").arg(word, didYouMean(word, names)));
                }
                call.verb = family->command();
                call.command = family->name;
            } else if (!call.verb) {
                const auto it = std::find_if(family->verbs.begin(), family->verbs.end(), [&](const Verb& v) { return v.name == word; });
                if (it == family->verbs.end()) {
                    QStringList names;
                    for (const Verb& v : family->verbs)
                        names.append(v.name);
                    return usage(QStringLiteral("unknown verb '%1 %2'%3 (see msgctr %1 --help)")
                                     .arg(family->name, word, didYouMean(word, names)));
                }
                call.verb = &*it;
                call.command = family->name + QLatin1Char(' ') + word;
            } else {
                positional.append(word);
            }
            continue;
        }
        const qsizetype equals = word.indexOf(QLatin1Char('='));
        const QString name = equals > 0 ? word.left(equals) : word;
        const bool inlineValue = equals > 0;
        if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
            help = true;
            continue;
        }
        if (name == QLatin1String("--version")) {
            version = true;
            continue;
        }
        if (name == QLatin1String("--json")) {
            json = true;
            continue;
        }
        if (name == QLatin1String("--root")) {
            if (!inlineValue && i + 1 >= words.size())
                return usage(QStringLiteral("--root needs a folder"));
            const QString dir = inlineValue ? word.mid(equals + 1) : words.at(++i);
            if (dir.isEmpty())
                return usage(QStringLiteral("--root needs a folder, not an empty text"));
            ZorHost::setRoot(dir);
            rootGiven = true;
            continue;
        }
        QStringList known = kGlobalOptionNames;
        const Arg* option = nullptr;
        if (call.verb) {
            for (const Arg& a : call.verb->args) {
                if (a.isOption()) {
                    known.append(a.name);
                    if (a.name == name)
                        option = &a;
                }
            }
        }
        if (!option) {
            const QString where = call.verb ? QStringLiteral(" for '%1'").arg(call.command) : QString();
            return usage(QStringLiteral("unknown option '%1'%2%3 (an argument that begins with '-' goes after '--')")
                             .arg(name, where, didYouMean(name, known)));
        }
        if (options.contains(name))
            return usage(QStringLiteral("%1 given twice").arg(name));
        options.append(name);
        if (option->kind == Arg::Flag) {
            if (inlineValue)
                return usage(QStringLiteral("%1 takes no value").arg(name));
            optionValues.append({name, QString()});
            continue;
        }
        if (!inlineValue && i + 1 >= words.size())
            return usage(QStringLiteral("%1 needs a value (%2)").arg(name, option->valueName));
        optionValues.append({name, inlineValue ? word.mid(equals + 1) : words.at(++i)});
    }

    if (version)
        return writeOut(versionText());
    if (help) {
        if (call.verb)
            return writeOut(verbHelp(*family, *call.verb));
        return writeOut(family ? familyHelp(*family) : topHelp());
    }
    if (!family) {
        writeErr(topHelp());
        return ExitUsage;
    }
    if (!call.verb) {
        writeErr(familyHelp(*family));
        return ExitUsage;
    }
    const int bound = bindArguments(&call, optionValues, positional);
    if (bound != ExitOk)
        return bound;
    if (call.verb->root != RootUse::None) {
        const int rootStatus = checkRoot(*call.verb, call.args, rootGiven);
        if (rootStatus != ExitOk)
            return rootStatus;
    }
    Output out;
    const int status = call.verb->run(call.args, out);
    if (out.isEmpty())
        return status;
    const int written = json ? writeOut(QString::fromUtf8(QJsonDocument(out.json()).toJson(QJsonDocument::Indented)))
                             : writeOut(out.text());
    return written != ExitOk ? written : status;
}

} // namespace msgctr
