// MSGCTR_ENG_SetupInfo: the quick texts offered in the composer, a read-only set of the system language
// from its resource file and the user's own set in the store.
#include "MSGCTR_ENG_SetupInfo.h"

#include "foundation/DevicePath.h"
#include "foundation/MsgctrReport.h"
#include "settings/SetupInfoKey.h"

#include "UTIL_Language.h"

#include <QFile>

namespace {

// Longer lines are read in pieces of this size, each piece a quick text of its own.
const qint64 kMaxLineBytes = 1024;

} // namespace

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::getDefaultQuickTexts(QStringList* pDefaultQuickTexts)
{
    pDefaultQuickTexts->clear();
    QString strLangCode = UTIL_Language::getSystemLanguageCode();
    if (strLangCode == QLatin1String("en-gb")) {
        MSGCTR_TRACE_REPORT() << MSGCTR_CMT("warning! since en-gb file not available, use en-us file instead as temp solution! ");
        strLangCode = QStringLiteral("en-us");
    }
    const QString strQktFileName = QStringLiteral("/usr/data_resource/quicktext/") + strLangCode + QStringLiteral(".qkt");
    QFile file(msgctrDevicePath(strQktFileName));
    if (!file.exists())
        MSGCTR_ASSERT_FAIL_REPORT("QFile::exists( strQktFileName )") << MSGCTR_VAL(strQktFileName);

    if (!file.open(QIODevice::ReadOnly)) {
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(strQktFileName);
    } else {
        char line[kMaxLineBytes + 1];
        while (!file.atEnd()) {
            const qint64 length = file.readLine(line, sizeof line);
            // Only a resource that could not be read to its end is checked for its five texts.
            if (length < 0) {
                MSGCTR_CHECK(pDefaultQuickTexts->count() >= 5)
                    << MSGCTR_NAMED_VAL("pDefaultQuickTexts->count()", int(pDefaultQuickTexts->count()))
                    << MSGCTR_VAL(strQktFileName);
                break;
            }
            QString text = QString::fromUtf8(line, length);
            if (text.endsWith(QLatin1Char('\n')))
                text.chop(1);
            pDefaultQuickTexts->append(text);
        }
        file.close();
    }
    if (pDefaultQuickTexts->isEmpty())
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(strQktFileName);
    return MSGCTR_ERRCODE__SUCCESS;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setUserDefinedQuickTexts(const QStringList& quickTexts)
{
    // The caller is expected to have limited the list: a longer one is refused in silence.
    if (quickTexts.count() > getMaximumPermitCountOfUserDefineQuickTexts()) {
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_CMT(" too many user-defined-quick-text ")
                                          << MSGCTR_NAMED_VAL("quickTexts.count()", int(quickTexts.count()))
                                          << MSGCTR_VAL(getMaximumPermitCountOfUserDefineQuickTexts());
        return MSGCTR_ERRCODE__SUCCESS;
    }
    const MSGCTR_ERRCODE msgctrErrcode = SetupInfoKey::of(SETUP_KEY__USER_DEF_QUICK_TEXTS).write(m_setup, quickTexts);
    makeAllDataOuts_reloadData(nullptr);
    return msgctrErrcode;
}
