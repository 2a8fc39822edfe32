// A push pair: a service centre allowed to send WAP push and its push-proxy gateway.
#include "MSGCTR_ENG_SetupInfo.h"

#include "foundation/MsgctrReport.h"

#include <QRegularExpression>

namespace {

using Pair = MSGCTR_ENG_SetupInfo::WAP_PPG_INFO_S;

// The separators of the stored pair list.
const QChar kFieldSeparator = QLatin1Char(',');
const QChar kPairSeparator = QLatin1Char(';');

} // namespace

bool Pair::isValidInput(const QString& field)
{
    const QString trimmed = field.trimmed();
    return !trimmed.isEmpty() && !trimmed.contains(kFieldSeparator) && !trimmed.contains(kPairSeparator);
}

bool Pair::isValidSmsc(const QString& smsc)
{
    return isValidInput(smsc);
}

bool Pair::isValidPpg(const QString& ppg)
{
    return isValidInput(ppg);
}

bool Pair::isValid() const
{
    return isValidSmsc(m_strSmsc) && isValidPpg(m_strPpg);
}

QString Pair::getValidatedData(const QString& field)
{
    static const QRegularExpression separators(QStringLiteral("[,;]"));
    return field.trimmed().remove(separators);
}

void Pair::validateData()
{
    if (!isValid())
        MSGCTR_MILD_ASSERT_FAIL_REPORT("isValid()");
    m_strSmsc = getValidatedData(m_strSmsc);
    m_strPpg = getValidatedData(m_strPpg);
}
