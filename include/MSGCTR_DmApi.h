// DM results as MSGCTR_ERRCODE values, and text between QString and the DM library's UTF-8 DMString.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "DMString.h"
#include "PDmtErrorDescription.h"

#include <QString>

namespace MSGCTR_DmApi {

// Searches the 16-row table from its first row; a DM result without a row gives 10081.
MSGCTR_EXPORT MSGCTR_ERRCODE toMsgctrErrcodeFromDmtResult(int dmtResult);
// 0 when the description means success, otherwise its code.
MSGCTR_EXPORT int getDmtResultSafely(const PDmtErrorDescription& description);
// "" for success, otherwise "Refer error code for detail."; the description's own text is never shown.
MSGCTR_EXPORT QString getErrorTextSafely(const PDmtErrorDescription& description);
MSGCTR_EXPORT MSGCTR_ERRCODE toMsgctrErrcodeFromDmtErrDes(const PDmtErrorDescription& description);
MSGCTR_EXPORT QString toQStringFromUtf8DMString(const DMString& text);
MSGCTR_EXPORT DMString toUtf8DMString(const QString& text);

} // namespace MSGCTR_DmApi
