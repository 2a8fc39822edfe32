// The settings store's value encodings, read from any text the store can hold: byte arrays (hex text of
// the bytes and their CRC), arbitrary texts and text lists (data streams inside such a byte array), integer
// lists and plain texts. A value the store reads it can write, and what it writes reads back unchanged; a
// damaged value reads as the default. Huge counts in damaged data must not cost huge allocations (the
// fuzzer's malloc limit catches them).
#include "FuzzSupport.h"

#include "MSGCTR_ENG_QByteArrUti.h"
#include "MSGCTR_ENG_Setup.h"

#include <QStringList>

#include <vector>

namespace {

const QString G = QStringLiteral("FUZZ");
const QString K = QStringLiteral("VALUE");

bool modelValidForCfg(const QString& text)
{
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u == u'[' || u == u']' || u == u'\r' || u == u'\n' || u == u'=')
            return false;
    }
    return true;
}

QString storedText(MSGCTR_ENG_Setup& store)
{
    QString text;
    store.SETUP_SET_Manager::getString(G, K, &text, QString(), false);
    return text;
}

void checkByteArray(MSGCTR_ENG_Setup& store, const QString& raw)
{
    const QByteArray untouched("caller's bytes");
    QByteArray read = untouched;
    store.getEntry(G, K, &read, QByteArrayLiteral("default"));
    QByteArray framed;
    QByteArray payload;
    const bool good = MSGCTR_ENG_Setup::hexQstring2ByteArray(raw, &framed)
                      && MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&payload, framed);
    FUZZ_CHECK(read == (good ? payload : untouched));
    if (!good)
        return;
    FUZZ_CHECK(store.setEntry(G, K, read) == MSGCTR_ERRCODE__SUCCESS);
    FUZZ_CHECK(storedText(store) == raw.toUpper());
    QByteArray again;
    store.getEntry(G, K, &again, QByteArrayLiteral("default"));
    FUZZ_CHECK(again == read);
}

// Equal, and null where the other is null: the encodings keep a null text apart from an empty one.
bool same(const QString& a, const QString& b)
{
    return a == b && a.isNull() == b.isNull();
}

bool same(const QStringList& a, const QStringList& b)
{
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i)
        if (!same(a.at(i), b.at(i)))
            return false;
    return true;
}

template <typename T, typename Read, typename Write>
void checkStream(MSGCTR_ENG_Setup& store, const QString& raw, const T& defaultValue, Read read, Write write)
{
    fuzz::takeReportCount();
    T value;
    read(&value, defaultValue);
    const int reports = fuzz::takeReportCount();
    if (reports > 0)
        FUZZ_CHECK(reports == 1 && same(value, defaultValue));
    // What was read can be written, and reads back the same.
    FUZZ_CHECK(write(value) == MSGCTR_ERRCODE__SUCCESS);
    T again;
    read(&again, defaultValue);
    FUZZ_CHECK(same(again, value) && fuzz::takeReportCount() == 0);
    store.SETUP_SET_Manager::setString(G, K, raw, false);
}

void checkIntList(MSGCTR_ENG_Setup& store, const QString& raw)
{
    std::vector<int> read{-7};
    store.getEntry(G, K, &read, std::vector<int>{5, 10});
    std::vector<int> model;
    bool ok = true;
    for (const QString& part : raw.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        model.push_back(part.toInt(&ok, 10));
        if (!ok)
            break;
    }
    FUZZ_CHECK(read == (ok ? model : std::vector<int>()));
    FUZZ_CHECK(store.setEntry(G, K, read) == MSGCTR_ERRCODE__SUCCESS);
    std::vector<int> again{-7};
    store.getEntry(G, K, &again, std::vector<int>{5, 10});
    FUZZ_CHECK(again == read);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    // The first byte chooses what the rest is: the stored text itself, or (odd) the bytes of a byte array
    // value, framed here with their checksum so that the fuzzer reaches the data streams inside.
    fuzz::Input input(data, size);
    const bool framed = input.byte() & 1;
    QString raw;
    if (framed)
        MSGCTR_ENG_Setup::byteArray2HexQstring(MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(input.rest()), &raw);
    else
        raw = fuzz::text(input.rest());
    MSGCTR_ENG_Setup store(QStringLiteral("fuzz"), MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);

    // The typed text write guards the characters the store's lines cannot hold.
    const MSGCTR_ERRCODE written = store.setEntry(G, K, raw, false);
    if (!modelValidForCfg(raw))
        FUZZ_CHECK(written == MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    else
        FUZZ_CHECK(written == (SETUP_SET_Manager::isStorableText(raw) ? MSGCTR_ERRCODE__SUCCESS
                                                                       : MSGCTR_ERRCODE__SETUP_WRITE_FAIL));
    if (written == MSGCTR_ERRCODE__SUCCESS)
        FUZZ_CHECK(storedText(store) == raw);

    // Everything below reads what a damaged or foreign file could hold.
    if (!store.SETUP_SET_Manager::setString(G, K, raw, false)) {
        FUZZ_CHECK(!SETUP_SET_Manager::isStorableText(raw));
        fuzz::takeReportCount();
        return 0;
    }
    checkByteArray(store, raw);
    store.SETUP_SET_Manager::setString(G, K, raw, false);
    checkStream(
        store, raw, QString(QStringLiteral("default")),
        [&](QString* out, const QString& def) { store.getEntryAnyQstr(G, K, out, def); },
        [&](const QString& value) { return store.setEntryAnyQstr(G, K, value); });
    checkStream(
        store, raw, QStringList{QStringLiteral("d1"), QStringLiteral("d2")},
        [&](QStringList* out, const QStringList& def) { store.getEntry(G, K, out, def); },
        [&](const QStringList& value) { return store.setEntry(G, K, value); });
    checkIntList(store, raw);
    fuzz::takeReportCount();
    return 0;
}
