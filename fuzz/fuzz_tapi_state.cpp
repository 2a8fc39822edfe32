// The telephony simulator's state file: a text the parser accepts serialises to a file that parses to the
// same state and serialises to the same bytes again; a text it refuses comes with a reason.
#include "FuzzSupport.h"

#include "TapiState.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    ZorTapi::State state;
    QString reason;
    if (!ZorTapi::parse(bytes, &state, &reason)) {
        FUZZ_CHECK(!reason.isEmpty());
        return 0;
    }
    FUZZ_CHECK(state.serviceCentre.size() <= size_t(ZorTapi::kMaxNumberChars));
    FUZZ_CHECK(state.emailGateway.size() <= size_t(ZorTapi::kMaxNumberChars));
    for (const ZorTapi::MailboxEntry& e : state.gsmr4Entries)
        FUZZ_CHECK(e.number.size() <= size_t(ZorTapi::kMaxNumberChars) && e.name.size() <= size_t(ZorTapi::kMaxNameUnits));
    for (const ZorTapi::MailboxEntry& e : state.cphsEntries)
        FUZZ_CHECK(e.number.size() <= size_t(ZorTapi::kMaxNumberChars) && e.name.size() <= size_t(ZorTapi::kMaxNameUnits));
    FUZZ_CHECK(state.languageSlots.size() <= size_t(ZorTapi::kMaxLanguageSlots));

    const QByteArray written = ZorTapi::serialize(state);
    ZorTapi::State reread;
    QString why;
    FUZZ_CHECK(ZorTapi::parse(written, &reread, &why));
    FUZZ_CHECK(ZorTapi::serialize(reread) == written);
    return 0;
}
