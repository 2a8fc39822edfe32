#include "MSGCTR_ENG_DbgCtrlCenter.h"

#include "MSGCTR_ENG_UTIL_Dbg.h"

#include <cstdlib>

#ifdef ZOR_WITH_WIDGETS
#include <QApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#endif

namespace {

const int kLogStringLimit = 20480;

const QString& truncationNotice()
{
    static const QString notice =
        QStringLiteral("\r\n !!! quorvel : too many log, truncated from here on !!! ......");
    return notice;
}

#ifdef ZOR_WITH_WIDGETS
QApplication* widgetApplication()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance());
}
#endif

} // namespace

QLabel* MSGCTR_ENG_DbgCtrlCenter::spLabel = nullptr;

MSGCTR_ENG_DbgCtrlCenter& MSGCTR_ENG_DbgCtrlCenter::obj()
{
    // Never destroyed: reports may still be written while the process shuts down.
    static MSGCTR_ENG_DbgCtrlCenter* const instance = new MSGCTR_ENG_DbgCtrlCenter();
    return *instance;
}

MSGCTR_ENG_DbgCtrlCenter::MSGCTR_ENG_DbgCtrlCenter()
{
    init();
}

MSGCTR_ENG_DbgCtrlCenter::~MSGCTR_ENG_DbgCtrlCenter() = default;

void MSGCTR_ENG_DbgCtrlCenter::init()
{
    m_dbgInfoEnabled = true;
    m_dbgInfoToGUIEnabled = true;
    m_dbgInfoToLogfileEnabled = true;
    m_dbgInfoToConsoleEnabled = true;
    m_traceToGUI = false;
    m_assertFailToGUI = false;
    m_mildAssertFailToGUI = false;
    m_showingModeless = false;
    m_showingModal = false;
    m_logStringEnabled = false;
    m_logString.clear();
}

void MSGCTR_ENG_DbgCtrlCenter::output(const QString& text)
{
    MSGCTR_ENG_UTIL_Dbg::outputToStdout(text);
    if (!m_logStringEnabled)
        return;
    appendToLogString(text);
}

void MSGCTR_ENG_DbgCtrlCenter::appendToLogString(const QString& text)
{
    if (m_logString.length() > kLogStringLimit) {
        if (m_logString.lastIndexOf(truncationNotice()) < 0)
            m_logString += truncationNotice();
        return;
    }
    m_logString += text;
}

void MSGCTR_ENG_DbgCtrlCenter::outputTraceMsg(const QString& text)
{
    output(text);
    if (m_traceToGUI)
        showMsgByModeless(text);
}

void MSGCTR_ENG_DbgCtrlCenter::outputAssertFailMsg(const QString& text)
{
    output(text);
    if (m_assertFailToGUI)
        showMsgByModel(text);
    assertFailHook();
}

void MSGCTR_ENG_DbgCtrlCenter::outputMildAssertFailMsg(const QString& text)
{
    output(text);
    assertFailHook();
}

void MSGCTR_ENG_DbgCtrlCenter::outputAssertFail(const char* file, int line, const char* expression)
{
    outputAssertFailMsg(MSGCTR_ENG_UTIL_Dbg::getFileAndLine(file, line) + QLatin1String(", assert fail at \"")
                        + QString::fromLatin1(expression) + QLatin1Char('"'));
}

void MSGCTR_ENG_DbgCtrlCenter::assertFailHook()
{
    abortIf(false);
}

void MSGCTR_ENG_DbgCtrlCenter::abortIf(bool doAbort)
{
    if (doAbort)
        std::abort();
}

void MSGCTR_ENG_DbgCtrlCenter::showMsgByModeless(const QString& text)
{
    m_showingModeless = true;
#ifdef ZOR_WITH_WIDGETS
    if (widgetApplication()) {
        if (!spLabel) {
            spLabel = new QLabel();
            spLabel->move(0, 70);
            spLabel->setAlignment(Qt::AlignLeft);
            spLabel->setWordWrap(true);
        }
        spLabel->setText(text);
        spLabel->show();
        spLabel->repaint();
        spLabel->update();
        QCoreApplication::processEvents();
    }
#else
    (void)text;
#endif
    m_showingModeless = false;
}

// Modal display was never completed; it must stay a no-op so that no caller blocks on it.
int MSGCTR_ENG_DbgCtrlCenter::showMsgByModel(const QString& text)
{
    (void)text;
    m_showingModal = true;
#ifdef ZOR_WITH_WIDGETS
    // A pixmap needs a GUI application; without one there is nothing to build it for.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        const QPixmap pixmap;
        (void)pixmap;
    }
#endif
    m_showingModal = false;
    return 0;
}

void MSGCTR_ENG_DbgCtrlCenter::destroyModelessWidget()
{
#ifdef ZOR_WITH_WIDGETS
    delete spLabel;
#endif
    spLabel = nullptr;
}

bool MSGCTR_ENG_DbgCtrlCenter::isShowingMsgSoWeAreProcessingEvents() const
{
    return m_showingModeless || m_showingModal;
}
