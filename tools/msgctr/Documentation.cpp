#include "Documentation.h"

namespace msgctr {
namespace {

const QString kGlobalOptions[][2] = {
    {QStringLiteral("--root DIR"), QStringLiteral("keep the host platform's files under DIR (default: $ZORHOST_ROOT, "
                                                  "else $XDG_DATA_HOME/zorhost, else ~/.local/share/zorhost)")},
    {QStringLiteral("--json"), QStringLiteral("print the result as one JSON object")},
    {QStringLiteral("-h, --help"), QStringLiteral("show the help of msgctr, a family or a verb")},
    {QStringLiteral("--version"), QStringLiteral("show the versions of msgctr and the library")},
    {QStringLiteral("--"), QStringLiteral("end of options: every later word is an argument")},
};

const QString kBooleanWords = QStringLiteral("true, false, on, off, yes, no, 1, 0 (any case)");

QString line(const QString& left, int width, const QString& right)
{
    return QStringLiteral("  %1 %2\n").arg(left, -width).arg(right);
}

QString argHelp(const Arg& a)
{
    QString help = a.help;
    if (a.kind == Arg::Integer)
        help += QStringLiteral(" (%1 to %2)").arg(a.min).arg(a.max);
    else if (a.kind == Arg::Boolean)
        help += QStringLiteral(" (%1)").arg(kBooleanWords);
    else if (a.kind == Arg::Choice && a.isOption())
        help += QStringLiteral(" (one of %1)").arg(a.choices.join(QStringLiteral(", ")));
    if (a.readsStdin)
        help += QStringLiteral("; - reads it from standard input");
    return help;
}

// "msgctr family verb [args]" without the blanks of parts that are empty.
QString commandLine(const Family& family, const Verb& verb)
{
    QStringList parts{QStringLiteral("msgctr"), family.name, verb.name, verb.usage()};
    parts.removeAll(QString());
    return parts.join(QLatin1Char(' '));
}

QString argLeft(const Arg& a)
{
    if (!a.isOption() || a.kind == Arg::Flag)
        return a.name;
    return a.name + QLatin1Char(' ') + a.valueName;
}

} // namespace

QString versionText()
{
    return QStringLiteral("msgctr " MSGCTR_VERSION "\nlibzormsgctrutil " MSGCTR_LIBRARY_VERSION "\n");
}

QString topHelp()
{
    QString text = QStringLiteral("usage: msgctr [--root DIR] [--json] <family> <verb> [args...]\n"
                                  "       msgctr --help | --version | <family> --help | <family> <verb> --help\n"
                                  "       msgctr --manual-page | --bash-completion\n\noptions:\n");
    for (const auto& option : kGlobalOptions)
        text += line(option[0], 12, option[1]);
    text += QStringLiteral("\nfamilies:\n");
    for (const Family& f : allFamilies())
        text += line(f.name, 10, f.summary);
    return text;
}

QString familyHelp(const Family& family)
{
    if (const Verb* command = family.command())
        return verbHelp(family, *command);
    QString text = QStringLiteral("usage: msgctr %1 <verb> [args...]\n%2\n\nverbs:\n").arg(family.name, family.summary);
    for (const Verb& v : family.verbs)
        text += line((v.name + QLatin1Char(' ') + v.usage()).trimmed(), 28, v.summary);
    return text;
}

QString verbHelp(const Family& family, const Verb& verb)
{
    QString text = QStringLiteral("usage: ") + commandLine(family, verb);
    text += QLatin1Char('\n') + verb.summary + QLatin1Char('\n');
    if (!verb.moreHelp.isEmpty())
        text += verb.moreHelp + QLatin1Char('\n');
    if (!verb.args.empty()) {
        text += QStringLiteral("\narguments:\n");
        for (const Arg& a : verb.args)
            text += line(argLeft(a), 16, argHelp(a));
    }
    if (!verb.jsonFields.isEmpty())
        text += QStringLiteral("\nfields (also with --json): %1\n").arg(verb.jsonFields);
    return text;
}

namespace {

// troff needs its backslashes doubled, and a line must not begin with "." or "'".
QString roff(const QString& text)
{
    QString t = text;
    t.replace(QLatin1Char('\\'), QStringLiteral("\\e"));
    t.replace(QLatin1Char('-'), QStringLiteral("\\-"));
    if (t.startsWith(QLatin1Char('.')) || t.startsWith(QLatin1Char('\'')))
        t.prepend(QStringLiteral("\\&"));
    return t;
}

} // namespace

QString manualPage()
{
    QString m = QStringLiteral(".TH MSGCTR 1 \"\" \"msgctr " MSGCTR_VERSION "\" \"User Commands\"\n"
                               ".SH NAME\nmsgctr \\- the message-centre library and its host platform at the command line\n"
                               ".SH SYNOPSIS\n.B msgctr\n[\\fB\\-\\-root\\fR \\fIDIR\\fR] [\\fB\\-\\-json\\fR] "
                               "\\fIfamily\\fR \\fIverb\\fR [\\fIargs\\fR...]\n"
                               ".SH DESCRIPTION\nEvery verb reads its arguments the same way: options may stand anywhere "
                               "before \\fB\\-\\-\\fR, an option's value may be given as \\fB\\-\\-opt=value\\fR, numbers "
                               "are checked against their range, booleans are ");
    m += roff(kBooleanWords) + QStringLiteral(".\nResults are printed as \\fIkey\\fR: \\fIvalue\\fR lines, or as one JSON "
                                              "object with \\fB\\-\\-json\\fR.\n.SH OPTIONS\n");
    for (const auto& option : kGlobalOptions)
        m += QStringLiteral(".TP\n.B %1\n%2\n").arg(roff(option[0]), roff(option[1]));
    for (const Family& f : allFamilies()) {
        m += QStringLiteral(".SH %1 VERBS\n%2\n").arg(f.name.toUpper(), roff(f.summary));
        for (const Verb& v : f.verbs) {
            m += QStringLiteral(".TP\n.B %1\n%2\n").arg(roff(commandLine(f, v)), roff(v.summary));
            if (!v.moreHelp.isEmpty())
                m += QStringLiteral(".br\n%1\n").arg(roff(v.moreHelp));
            for (const Arg& a : v.args)
                m += QStringLiteral(".br\n\\fB%1\\fR: %2\n").arg(roff(argLeft(a)), roff(argHelp(a)));
            if (!v.jsonFields.isEmpty())
                m += QStringLiteral(".br\nFields: %1\n").arg(roff(v.jsonFields));
        }
    }
    m += QStringLiteral(".SH EXIT STATUS\n0 success, 1 a failure (the operation, its code and what it means are "
                        "printed on standard error), 2 bad usage.\n"
                        ".SH ENVIRONMENT\n.TP\n.B ZORHOST_ROOT\nthe host root when \\fB\\-\\-root\\fR is not given\n");
    return m;
}

namespace {

QString shellWords(const QStringList& words)
{
    QString quoted = words.join(QLatin1Char(' '));
    quoted.replace(QLatin1Char('\''), QStringLiteral("'\\''"));
    return QLatin1Char('\'') + quoted + QLatin1Char('\'');
}

} // namespace

QString bashCompletion()
{
    QString s = QStringLiteral("# bash completion for msgctr (made from its verb declarations)\n"
                               "_msgctr()\n{\n"
                               "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}\n"
                               "    local global='--root --json --help --version'\n"
                               "    local -a words=()\n"
                               "    local i\n"
                               "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
                               "        case ${COMP_WORDS[i]} in\n"
                               "        --root) ((i++)) ;;\n"
                               "        -*) ;;\n"
                               "        *) words+=(\"${COMP_WORDS[i]}\") ;;\n"
                               "        esac\n"
                               "    done\n"
                               "    if [[ $prev == --root ]]; then\n"
                               "        COMPREPLY=($(compgen -d -- \"$cur\"))\n"
                               "        return\n"
                               "    fi\n"
                               "    if ((${#words[@]} == 0)); then\n");
    QStringList families;
    for (const Family& f : allFamilies())
        families.append(f.name);
    s += QStringLiteral("        COMPREPLY=($(compgen -W \"%1 $global\" -- \"$cur\"))\n        return\n    fi\n")
             .arg(families.join(QLatin1Char(' ')));
    s += QStringLiteral("    if ((${#words[@]} == 1)); then\n        case ${words[0]} in\n");
    for (const Family& f : allFamilies()) {
        QStringList verbs;
        for (const Verb& v : f.verbs)
            if (!v.name.isEmpty())
                verbs.append(v.name);
        s += QStringLiteral("        %1) COMPREPLY=($(compgen -W %2 -- \"$cur\")) ;;\n").arg(f.name, shellWords(verbs));
    }
    s += QStringLiteral("        esac\n        return\n    fi\n"
                        "    local n=$((${#words[@]} - 2))\n"
                        "    case \"${words[0]} ${words[1]}\" in\n");
    for (const Family& f : allFamilies()) {
        for (const Verb& v : f.verbs) {
            if (v.name.isEmpty())
                continue;
            QStringList options{QStringLiteral("--help"), QStringLiteral("--json")};
            QString valueCases;
            QString positionalCases;
            int position = 0;
            for (const Arg& a : v.args) {
                if (a.isOption()) {
                    options.append(a.name);
                    if (a.kind == Arg::Choice || a.kind == Arg::Boolean)
                        valueCases += QStringLiteral("            %1) COMPREPLY=($(compgen -W %2 -- \"$cur\")); return ;;\n")
                                          .arg(a.name, shellWords(a.kind == Arg::Boolean ? QStringList{QStringLiteral("true"), QStringLiteral("false")} : a.choices));
                    else if (a.kind != Arg::Flag && a.valueName == QLatin1String("FILE"))
                        valueCases += QStringLiteral("            %1) COMPREPLY=($(compgen -f -- \"$cur\")); return ;;\n").arg(a.name);
                    continue;
                }
                if (a.kind == Arg::Choice || a.kind == Arg::Boolean)
                    positionalCases += QStringLiteral("            %1) COMPREPLY=($(compgen -W %2 -- \"$cur\")); return ;;\n")
                                           .arg(position)
                                           .arg(shellWords(a.kind == Arg::Boolean ? QStringList{QStringLiteral("true"), QStringLiteral("false")} : a.choices));
                ++position;
            }
            s += QStringLiteral("    \"%1 %2\")\n").arg(f.name, v.name);
            if (!valueCases.isEmpty())
                s += QStringLiteral("        case $prev in\n%1        esac\n").arg(valueCases);
            s += QStringLiteral("        if [[ $cur == -* ]]; then\n"
                                "            COMPREPLY=($(compgen -W %1 -- \"$cur\"))\n"
                                "            return\n        fi\n").arg(shellWords(options));
            if (!positionalCases.isEmpty())
                s += QStringLiteral("        case $n in\n%1        esac\n").arg(positionalCases);
            s += QStringLiteral("        ;;\n");
        }
    }
    s += QStringLiteral("    esac\n}\ncomplete -F _msgctr msgctr\n");
    return s;
}

} // namespace msgctr
