#include "MSGCTR_ENG_AddrTypeChk.h"

bool MSGCTR_ENG_EmsNumber__isDecimalNumber(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

int MSGCTR_ENG_toSigned(unsigned int value)
{
    return static_cast<int>(value);
}

bool MSGCTR_ENG_AddrTypeChk::isNumber(const QString& text)
{
    if (text.isEmpty())
        return false;
    if (text.at(0) != QLatin1Char('+') && !MSGCTR_ENG_EmsNumber__isDecimalNumber(text.at(0)))
        return false;
    for (qsizetype i = 1; i < text.size(); ++i) {
        if (!MSGCTR_ENG_EmsNumber__isDecimalNumber(text.at(i)))
            return false;
    }
    return true;
}

bool MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(const QString& text)
{
    return isNumber(text) && text.size() >= 1 && text.size() <= MAX_EMS_NUMBER_LENGTH;
}

bool MSGCTR_ENG_AddrTypeChk::isValidNumber(const QString& text)
{
    return isValidEmsNumber(text);
}

bool MSGCTR_ENG_AddrTypeChk::isValidEmailAddress(const QString& text)
{
    const QChar at(QLatin1Char('@'));
    return text.count(at, Qt::CaseSensitive) == 1 && text.front() != at && text.back() != at;
}
