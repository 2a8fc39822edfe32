#include "MSGCTR_ENG_AddrUti.h"

QString MSGCTR_ENG_AddrUti::cloneWithRemovingHyphen(const QString& address)
{
    QString copy = address;
    copy.remove(QLatin1Char('-'));
    return copy;
}
