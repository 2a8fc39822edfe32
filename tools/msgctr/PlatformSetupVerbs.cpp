// msgctr platform flexbit|feature|lang: the host platform's feature switches and system language.
#include "DidYouMean.h"
#include "Verb.h"

#include "UTIL_Language.h"
#include "ZorHostSetupControl.h"
#include "ZorHostUtilControl.h"

#include <QMap>

#include <cerrno>
#include <climits>
#include <cstring>

namespace msgctr {
namespace {

QString osError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

QJsonObject table(const QMap<int, bool>& switches)
{
    QJsonObject object;
    for (auto it = switches.constBegin(); it != switches.constEnd(); ++it)
        object.insert(QString::number(it.key()), it.value());
    return object;
}

int flexbit(const Args& args, Output& out)
{
    const QString number = QStringLiteral("NUMBER");
    if (!args.has(number)) {
        if (args.has(QStringLiteral("--unset")))
            return usage(QStringLiteral("--unset needs the NUMBER of the flex bit"));
        out.field(QStringLiteral("flex_bits"), table(ZorHost::flexBits()));
        return ExitOk;
    }
    const int bit = int(args.number(number));
    if (args.has(QStringLiteral("--unset"))) {
        if (args.has(QStringLiteral("BOOL")))
            return usage(QStringLiteral("--unset goes without BOOL"));
        if (!ZorHost::unsetFlexBit(bit))
            return fail(QStringLiteral("cannot unset flex bit %1: %2").arg(bit).arg(osError()));
    } else if (args.has(QStringLiteral("BOOL")) && !ZorHost::setFlexBit(bit, args.boolean(QStringLiteral("BOOL")))) {
        return fail(QStringLiteral("cannot change flex bit %1: %2").arg(bit).arg(osError()));
    }
    const QMap<int, bool> bits = ZorHost::flexBits();
    if (!bits.contains(bit) && !args.has(QStringLiteral("--unset")))
        return fail(QStringLiteral("flex bit %1 is not set").arg(bit));
    out.field(QStringLiteral("number"), bit);
    out.field(QStringLiteral("on"), bits.contains(bit) ? QJsonValue(bits.value(bit)) : QJsonValue());
    return ExitOk;
}

int feature(const Args& args, Output& out)
{
    if (!args.has(QStringLiteral("ID"))) {
        out.field(QStringLiteral("features"), table(ZorHost::features()));
        return ExitOk;
    }
    const int id = int(args.number(QStringLiteral("ID")));
    if (args.has(QStringLiteral("BOOL")) && !ZorHost::setFeatureAvailable(id, args.boolean(QStringLiteral("BOOL"))))
        return fail(QStringLiteral("cannot change feature %1: %2").arg(id).arg(osError()));
    const QMap<int, bool> features = ZorHost::features();
    if (!features.contains(id))
        return fail(QStringLiteral("feature %1 is not set").arg(id));
    out.field(QStringLiteral("id"), id);
    out.field(QStringLiteral("available"), features.value(id));
    return ExitOk;
}

int lang(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("CODE"))) {
        const QString code = args.text(QStringLiteral("CODE"));
        const QStringList known = ZorHost::systemLanguages();
        if (!known.contains(code))
            return usage(QStringLiteral("unknown language code '%1'%2; known: %3")
                             .arg(code, didYouMean(code, known), known.join(QLatin1Char(' '))));
        if (!ZorHost::setSystemLanguage(code))
            return fail(QStringLiteral("cannot set the system language to %1: %2").arg(code, osError()));
    }
    const int id = UTIL_Language::getSystemLanguageId();
    out.field(QStringLiteral("code"), UTIL_Language::getSystemLanguageCode());
    out.field(QStringLiteral("id"), id);
    out.field(QStringLiteral("name"), UTIL_Language::getSystemLanguageString());
    out.field(QStringLiteral("cb_language"), UTIL_Language::getLanguageIndexByLanId(id));
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("platform"), QString(),
    {
        Verb(QStringLiteral("flexbit"), QStringLiteral("list the flex bits, show one, or set or unset it"), flexbit)
            .arg(integer(QStringLiteral("NUMBER"), INT_MIN, INT_MAX, QStringLiteral("the flex bit")).optional())
            .arg(boolean(QStringLiteral("BOOL"), QStringLiteral("the new setting")).optional())
            .arg(flag(QStringLiteral("--unset"), QStringLiteral("take the bit out of the table: it can no longer be read")))
            .writesWhenGiven(QStringLiteral("BOOL"))
            .fields(QStringLiteral("flex_bits (object: number to boolean); for one bit: number, on (boolean, null when unset)")),
        Verb(QStringLiteral("feature"), QStringLiteral("list the feature ids, show one, or make it available or not"), feature)
            .arg(integer(QStringLiteral("ID"), INT_MIN, INT_MAX, QStringLiteral("the feature id")).optional())
            .arg(boolean(QStringLiteral("BOOL"), QStringLiteral("whether it is available")).optional())
            .writesWhenGiven(QStringLiteral("BOOL"))
            .fields(QStringLiteral("features (object: id to boolean); for one feature: id, available (boolean)")),
        Verb(QStringLiteral("lang"), QStringLiteral("show the system language, or make CODE (e.g. de-de) the system language"), lang)
            .arg(text(QStringLiteral("CODE"), QStringLiteral("a system language code")).optional())
            .writesWhenGiven(QStringLiteral("CODE"))
            .fields(QStringLiteral("code (text), id (number), name (text), cb_language (number)")),
    });

} // namespace
} // namespace msgctr
