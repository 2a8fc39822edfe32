// Typed values to and from the DM library's DmtData. The getters reset their output first and leave the
// reset value on failure (23 from the DM library, a value of another type, maps to 10065).
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "DmtData.h"

#include <QByteArray>
#include <QString>

namespace MSGCTR_DmtDataApi {

MSGCTR_EXPORT DmtData fromString(const QString& text);
MSGCTR_EXPORT DmtData fromBool(bool value);
MSGCTR_EXPORT DmtData fromInt(int value);
MSGCTR_EXPORT DmtData fromUint(unsigned int value); // an integer of the same bits
MSGCTR_EXPORT DmtData fromBinary(const QByteArray& bytes);
MSGCTR_EXPORT DmtData fromBinary(const unsigned char* bytes, int length);

MSGCTR_EXPORT MSGCTR_ERRCODE getString(QString* out, const DmtData& data);
MSGCTR_EXPORT MSGCTR_ERRCODE getBool(bool* out, const DmtData& data);
MSGCTR_EXPORT MSGCTR_ERRCODE getInt(int* out, const DmtData& data);
MSGCTR_EXPORT MSGCTR_ERRCODE getUint(unsigned int* out, const DmtData& data);
MSGCTR_EXPORT MSGCTR_ERRCODE getBinary(QByteArray* out, const DmtData& data);

} // namespace MSGCTR_DmtDataApi
