// MSGCTR_ENG_SetupInfo: the push pairs of the WAP group and the browser's push filter built from them.
#include "MSGCTR_ENG_SetupInfo.h"

#include "foundation/MsgctrReport.h"
#include "settings/SetupInfoKey.h"

namespace {

using Pair = MSGCTR_ENG_SetupInfo::WAP_PPG_INFO_S;

const QChar kFieldSeparator = QLatin1Char(',');
const QChar kPairSeparator = QLatin1Char(';');

static_assert(SETUP_KEY__WHITELIST_PAIR10 == SETUP_KEY__WHITELIST_PAIR1 + 9,
              "the ten whitelist keys follow one another");
const int kWhitelistKeys = 10;

// One stored "smsc,ppg" text as a validated pair; any other number of fields is reported and gives an
// empty pair.
Pair toPair(const QString& str)
{
    Pair pair;
    const QStringList fields = str.split(kFieldSeparator, Qt::KeepEmptyParts);
    if (fields.size() == 2) {
        pair.m_strSmsc = fields[0];
        pair.m_strPpg = fields[1];
    } else {
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(str);
    }
    pair.validateData();
    return pair;
}

// The text of one pair as it is written; an invalid pair is reported and written validated.
QString toText(const Pair& pair)
{
    const Pair& newPpg = pair;
    MSGCTR_CHECK(newPpg.isValid()) << MSGCTR_VAL(newPpg.m_strSmsc) << MSGCTR_VAL(newPpg.m_strPpg);
    Pair validated = newPpg;
    validated.validateData();
    return validated.m_strSmsc + kFieldSeparator + validated.m_strPpg;
}

} // namespace

std::vector<Pair> MSGCTR_ENG_SetupInfo::getWapAllowedPpgS()
{
    std::vector<Pair> pairs;
    const QString text = SetupInfoKey::of(SETUP_KEY__WAP_ALLOWED_PPG_S).read(m_setup).toString();
    for (const QString& part : text.split(kPairSeparator, Qt::SkipEmptyParts))
        pairs.push_back(toPair(part));
    return pairs;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setWapAllowedPpgS(const std::vector<Pair>& pairs)
{
    QStringList texts;
    for (const Pair& pair : pairs)
        texts.append(toText(pair));
    const MSGCTR_ERRCODE msgctrErrcode = SetupInfoKey::of(SETUP_KEY__WAP_ALLOWED_PPG_S).write(m_setup, texts.join(kPairSeparator));
    MSGCTR_CHECK(MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)) << MSGCTR_VAL(msgctrErrcode);
    return msgctrErrcode;
}

std::vector<Pair> MSGCTR_ENG_SetupInfo::getWapWhitelistPairS()
{
    std::vector<Pair> pairs;
    for (int n = 0; n < kWhitelistKeys; ++n) {
        const QString str =
            SetupInfoKey::of(static_cast<SetupInfoKeyId>(SETUP_KEY__WHITELIST_PAIR1 + n)).read(m_setup).toString();
        if (!str.isEmpty())
            pairs.push_back(toPair(str));
    }
    return pairs;
}

QString MSGCTR_ENG_SetupInfo::getOperaPushWhitelist()
{
    switch (getWapAllowedPushSmscMode()) {
    case WAP_ALLOWED_PUSH_SMSC_MODE__OFF:
        return QLatin1String("");
    case WAP_ALLOWED_PUSH_SMSC_MODE__RESTRICTED: {
        QStringList texts;
        for (const Pair& pair : getWapAllowedPpgS())
            texts.append(toText(pair));
        return texts.join(QLatin1Char(' '));
    }
    default:
        return QStringLiteral("*");
    }
}

QStringList MSGCTR_ENG_SetupInfo::getStrlistWapAllowedPushSmsc()
{
    QStringList smscs;
    for (const Pair& pair : getWapAllowedPpgS())
        smscs.append(pair.m_strSmsc);
    return smscs;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setStrlistWapAllowedPushSmsc(const QStringList& smscs)
{
    std::vector<Pair> pairs;
    for (const QString& smsc : smscs) {
        Pair pair;
        pair.m_strSmsc = smsc;
        pairs.push_back(pair);
    }
    return setWapAllowedPpgS(pairs);
}

bool MSGCTR_ENG_SetupInfo::isValidSmscList(const QStringList& smscs)
{
    for (const QString& smsc : smscs) {
        if (!Pair::isValidSmsc(smsc))
            return false;
    }
    return true;
}
