// The configuration store's key files: whatever the bytes, the parse holds only valid names and storable
// values, and what the parser reads is what the writer writes (parse, serialise and parse again gives
// the same contents, and the second serialisation the same bytes).
#include "FuzzSupport.h"

#include "SETUP_SET_Manager.h"
#include "SetupKeyFile.h"

namespace {

bool sameContents(const SetupKeyFile::Contents& a, const SetupKeyFile::Contents& b)
{
    if (a.groups() != b.groups())
        return false;
    for (const QString& group : a.groups()) {
        if (a.keys(group) != b.keys(group))
            return false;
        for (const QString& key : a.keys(group))
            if (*a.value(group, key) != *b.value(group, key))
                return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const SetupKeyFile::Contents contents = SetupKeyFile::Contents::parse(bytes, QStringLiteral("fuzz.conf"));
    for (const QString& group : contents.groups()) {
        FUZZ_CHECK(SetupKeyFile::isValidName(group));
        FUZZ_CHECK(!contents.keys(group).isEmpty());
        for (const QString& key : contents.keys(group)) {
            FUZZ_CHECK(SetupKeyFile::isValidName(key));
            const QString* value = contents.value(group, key);
            FUZZ_CHECK(value && !value->isNull());
            FUZZ_CHECK(SetupKeyFile::isStorableText(*value));
        }
    }
    const QByteArray written = contents.serialize();
    const SetupKeyFile::Contents reread = SetupKeyFile::Contents::parse(written, QStringLiteral("fuzz.conf"));
    FUZZ_CHECK(sameContents(contents, reread));
    FUZZ_CHECK(reread.serialize() == written);

    // The name and value checks are the store's own, and hold for any UTF-16 text.
    const QString text = fuzz::text(bytes);
    FUZZ_CHECK(SETUP_SET_Manager::isValidName(text) == SetupKeyFile::isValidName(text));
    FUZZ_CHECK(SETUP_SET_Manager::isStorableText(text) == SetupKeyFile::isStorableText(text));
    if (SetupKeyFile::isValidName(text) && SetupKeyFile::isStorableText(text)) {
        SetupKeyFile::Contents changed = contents;
        changed.set(text, text, text);
        const SetupKeyFile::Contents back = SetupKeyFile::Contents::parse(changed.serialize(), QString());
        FUZZ_CHECK(back.value(text, text) && *back.value(text, text) == text);
    }
    fuzz::takeReportCount();
    return 0;
}
