// What every fuzz target shares: turning fuzz bytes into texts, a quiet report sink that counts the
// library's report lines, a host root of its own, and the property check that stops the run.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

namespace fuzz {

// Once per process: the host root (ZORHOST_ROOT, else ./fuzz-root) and the report sink.
void init();

// The bytes as UTF-8, except that encoded surrogates (ED A0 80 .. ED BF BF) stay single UTF-16 units, so
// the fuzzer reaches every UTF-16 text, paired or not. Other bad sequences give U+FFFD per byte.
QString text(const QByteArray& bytes);

// Report lines written by the library since the last call.
int takeReportCount();

[[noreturn]] void fail(const char* property, const char* file, int line);

// Takes bytes off the front of the input; once it is used up every value is 0 or empty.
class Input {
public:
    Input(const uint8_t* data, size_t size);
    uint8_t byte();
    int intIn(int lo, int hi);
    bool flag() { return byte() & 1; }
    // Bytes up to the next 0 byte (not included; the 0 is consumed), or the rest.
    QByteArray field();
    QByteArray rest();
    bool atEnd() const { return m_pos >= m_size; }

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_pos = 0;
};

} // namespace fuzz

#define FUZZ_CHECK(cond)                            \
    do {                                            \
        if (!(cond))                                \
            fuzz::fail(#cond, __FILE__, __LINE__);  \
    } while (0)
