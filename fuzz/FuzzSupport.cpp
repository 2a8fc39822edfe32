#include "FuzzSupport.h"

#include "MSGCTR_ENG_UTIL_Dbg.h"
#include "ZorHostControl.h"

#include <QDir>

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace fuzz {
namespace {

std::atomic<int> s_reports{0};

void countReport(const char*)
{
    ++s_reports;
}

} // namespace

void init()
{
    static const bool done = [] {
        QString root = qEnvironmentVariable("ZORHOST_ROOT");
        if (root.isEmpty())
            root = QDir::current().absoluteFilePath(QStringLiteral("fuzz-root"));
        QDir().mkpath(root);
        ZorHost::setRoot(root);
        ZorHost::resetAll();
        MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(countReport);
        return true;
    }();
    (void)done;
}

QString text(const QByteArray& bytes)
{
    QString out;
    out.reserve(bytes.size());
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.constData());
    const qsizetype n = bytes.size();
    qsizetype i = 0;
    while (i < n) {
        const unsigned char b = p[i];
        int extra = 0;
        char32_t cp = 0;
        if (b < 0x80) {
            out += QChar(b);
            ++i;
            continue;
        } else if ((b & 0xE0) == 0xC0) {
            extra = 1;
            cp = b & 0x1F;
        } else if ((b & 0xF0) == 0xE0) {
            extra = 2;
            cp = b & 0x0F;
        } else if ((b & 0xF8) == 0xF0) {
            extra = 3;
            cp = b & 0x07;
        } else {
            out += QChar(QChar::ReplacementCharacter);
            ++i;
            continue;
        }
        bool ok = i + extra < n;
        for (int k = 1; ok && k <= extra; ++k) {
            ok = (p[i + k] & 0xC0) == 0x80;
            cp = (cp << 6) | (p[i + k] & 0x3F);
        }
        static const char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
        if (!ok || cp < smallest[extra] || cp > 0x10FFFF) {
            out += QChar(QChar::ReplacementCharacter);
            ++i;
            continue;
        }
        if (cp >= 0x10000) {
            out += QChar(QChar::highSurrogate(cp));
            out += QChar(QChar::lowSurrogate(cp));
        } else {
            out += QChar(static_cast<char16_t>(cp));
        }
        i += extra + 1;
    }
    return out;
}

int takeReportCount()
{
    return s_reports.exchange(0);
}

void fail(const char* property, const char* file, int line)
{
    // On standard output too: scripts/fuzz closes the targets' standard error, where the platform's damage
    // reports go, and the fuzzer keeps only its own copy of it.
    std::printf("%s:%d: property broken: %s\n", file, line, property);
    std::fflush(stdout);
    std::fprintf(stderr, "%s:%d: property broken: %s\n", file, line, property);
    std::abort();
}

Input::Input(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

uint8_t Input::byte()
{
    return m_pos < m_size ? m_data[m_pos++] : 0;
}

int Input::intIn(int lo, int hi)
{
    const unsigned span = static_cast<unsigned>(hi - lo) + 1;
    const unsigned value = (static_cast<unsigned>(byte()) << 8) | byte();
    return lo + static_cast<int>(value % span);
}

QByteArray Input::field()
{
    const size_t start = m_pos;
    while (m_pos < m_size && m_data[m_pos] != 0)
        ++m_pos;
    QByteArray bytes(reinterpret_cast<const char*>(m_data + start), static_cast<qsizetype>(m_pos - start));
    if (m_pos < m_size)
        ++m_pos;
    return bytes;
}

QByteArray Input::rest()
{
    QByteArray bytes(reinterpret_cast<const char*>(m_data + m_pos), static_cast<qsizetype>(m_size - m_pos));
    m_pos = m_size;
    return bytes;
}

} // namespace fuzz
