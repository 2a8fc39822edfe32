// What counts as a phone number and what as an e-mail address in a recipient list.
#pragma once

#include "msgctr_export.h"

#include <QChar>
#include <QString>

// "0" to "9" only (no other Unicode digits).
MSGCTR_EXPORT bool MSGCTR_ENG_EmsNumber__isDecimalNumber(QChar c);
// The same bits as an int, for comparing Qt's counts with signed indices.
MSGCTR_EXPORT int MSGCTR_ENG_toSigned(unsigned int value);

class MSGCTR_EXPORT MSGCTR_ENG_AddrTypeChk {
public:
    // Not empty, an optional leading "+" and decimal digits otherwise; a lone "+" passes.
    static bool isNumber(const QString& text);
    // A number of 1 to 41 characters.
    static bool isValidEmsNumber(const QString& text);
    static bool isValidNumber(const QString& text);
    // Deliberately loose: exactly one "@", neither first nor last.
    static bool isValidEmailAddress(const QString& text);

    static const int MAX_EMS_NUMBER_LENGTH = 41;
};
