// UCS-2 to GSM 7-bit conversion of the telephony simulator: the default alphabet and its extension table.
#include "HostRootTest.h"
#include "TAPI.h"
#include "ZorHostControl.h"

#include <map>
#include <string>
#include <vector>

namespace {

// The default alphabet by code (0x1B, the escape, stands for no character).
const char16_t kDefault[128] = {
    0x0040, 0x00A3, 0x0024, 0x00A5, 0x00E8, 0x00E9, 0x00F9, 0x00EC, 0x00F2, 0x00C7, 0x000A, 0x00D8, 0x00F8, 0x000D, 0x00C5, 0x00E5,
    0x0394, 0x005F, 0x03A6, 0x0393, 0x039B, 0x03A9, 0x03A0, 0x03A8, 0x03A3, 0x0398, 0x039E, 0x0000, 0x00C6, 0x00E6, 0x00DF, 0x00C9,
    0x0020, 0x0021, 0x0022, 0x0023, 0x00A4, 0x0025, 0x0026, 0x0027, 0x0028, 0x0029, 0x002A, 0x002B, 0x002C, 0x002D, 0x002E, 0x002F,
    0x0030, 0x0031, 0x0032, 0x0033, 0x0034, 0x0035, 0x0036, 0x0037, 0x0038, 0x0039, 0x003A, 0x003B, 0x003C, 0x003D, 0x003E, 0x003F,
    0x00A1, 0x0041, 0x0042, 0x0043, 0x0044, 0x0045, 0x0046, 0x0047, 0x0048, 0x0049, 0x004A, 0x004B, 0x004C, 0x004D, 0x004E, 0x004F,
    0x0050, 0x0051, 0x0052, 0x0053, 0x0054, 0x0055, 0x0056, 0x0057, 0x0058, 0x0059, 0x005A, 0x00C4, 0x00D6, 0x00D1, 0x00DC, 0x00A7,
    0x00BF, 0x0061, 0x0062, 0x0063, 0x0064, 0x0065, 0x0066, 0x0067, 0x0068, 0x0069, 0x006A, 0x006B, 0x006C, 0x006D, 0x006E, 0x006F,
    0x0070, 0x0071, 0x0072, 0x0073, 0x0074, 0x0075, 0x0076, 0x0077, 0x0078, 0x0079, 0x007A, 0x00E4, 0x00F6, 0x00F1, 0x00FC, 0x00E0,
};

const std::map<char16_t, unsigned char> kExtension = {
    {0x000C, 0x0A}, {0x005E, 0x14}, {0x007B, 0x28}, {0x007D, 0x29}, {0x005C, 0x2F},
    {0x005B, 0x3C}, {0x007E, 0x3D}, {0x005D, 0x3E}, {0x007C, 0x40}, {0x20AC, 0x65},
};

struct Converted {
    unsigned short result;
    std::vector<unsigned char> bytes;
};

Converted convert(const std::u16string& text, unsigned short dstLen)
{
    std::vector<unsigned char> dst(dstLen + 1u, 0xEE);
    const unsigned short r = TAPI_UTIL_ConvertUcs2StringToGsmString(
        reinterpret_cast<const unsigned short*>(text.data()), static_cast<unsigned short>(text.size()), dst.data(), dstLen);
    EXPECT_EQ(dst[dstLen], 0xEE) << "wrote past dstLen";
    if (r != TAPI_UTIL_NOT_GSM)
        dst.resize(r);
    return {r, dst};
}

class ZorTapiGsmAlphabet : public HostRootTest {};

TEST_F(ZorTapiGsmAlphabet, EveryDefaultCharacterGivesItsCode)
{
    for (int code = 0; code < 128; ++code) {
        if (code == 0x1B)
            continue;
        const Converted c = convert(std::u16string(1, kDefault[code]), 4);
        EXPECT_EQ(c.result, 1) << "code " << code;
        EXPECT_EQ(c.bytes, std::vector<unsigned char>{static_cast<unsigned char>(code)}) << "code " << code;
    }
}

TEST_F(ZorTapiGsmAlphabet, EveryExtensionCharacterGivesEscapeAndCode)
{
    for (const auto& [unit, code] : kExtension) {
        const Converted c = convert(std::u16string(1, unit), 4);
        EXPECT_EQ(c.result, 2) << "unit " << int(unit);
        EXPECT_EQ(c.bytes, (std::vector<unsigned char>{0x1B, code})) << "unit " << int(unit);
    }
}

// The other way: a text of every character decodes back from the bytes through the tables.
TEST_F(ZorTapiGsmAlphabet, WholeAlphabetRoundTrips)
{
    std::u16string text;
    for (int code = 0; code < 128; ++code)
        if (code != 0x1B)
            text += kDefault[code];
    for (const auto& entry : kExtension)
        text += entry.first;
    const Converted c = convert(text, 300);
    ASSERT_EQ(c.result, 127 + 2 * kExtension.size());
    std::u16string back;
    for (size_t i = 0; i < c.bytes.size(); ++i) {
        if (c.bytes[i] != 0x1B) {
            back += kDefault[c.bytes[i]];
            continue;
        }
        const unsigned char code = c.bytes[++i];
        for (const auto& [unit, extCode] : kExtension)
            if (extCode == code)
                back += unit;
    }
    EXPECT_EQ(back, text);
}

TEST_F(ZorTapiGsmAlphabet, EveryOtherUnitIsUnmappable)
{
    std::map<char16_t, bool> mappable;
    for (int code = 0; code < 128; ++code)
        if (code != 0x1B)
            mappable[kDefault[code]] = true;
    for (const auto& entry : kExtension)
        mappable[entry.first] = true;
    int unmappable = 0;
    for (unsigned u = 1; u <= 0xFFFF; ++u) {
        const Converted c = convert(std::u16string(1, char16_t(u)), 4);
        if (mappable.count(char16_t(u))) {
            EXPECT_NE(c.result, TAPI_UTIL_NOT_GSM) << "unit " << u;
        } else {
            ++unmappable;
            ASSERT_EQ(c.result, TAPI_UTIL_NOT_GSM) << "unit " << u;
        }
    }
    EXPECT_EQ(unmappable, 65535 - 137);
}

TEST_F(ZorTapiGsmAlphabet, OneUnmappableCharacterAnywhereFailsTheText)
{
    EXPECT_EQ(convert(u"abc\u0436", 10).result, TAPI_UTIL_NOT_GSM);
    EXPECT_EQ(convert(u"\u4E2Dabc", 10).result, TAPI_UTIL_NOT_GSM);
    EXPECT_EQ(convert(u"a\U0001F600", 10).result, TAPI_UTIL_NOT_GSM);
}

TEST_F(ZorTapiGsmAlphabet, FullOutputStopsWritingButKeepsChecking)
{
    const Converted fits = convert(u"abcdef", 3);
    EXPECT_EQ(fits.result, 3);
    EXPECT_EQ(fits.bytes, (std::vector<unsigned char>{'a', 'b', 'c'}));
    EXPECT_EQ(convert(u"abcdef\u0436", 3).result, TAPI_UTIL_NOT_GSM);
}

TEST_F(ZorTapiGsmAlphabet, EscapePairIsNeverSplitAtTheEndOfTheOutput)
{
    const Converted c = convert(u"ab\u20ACc", 3);
    EXPECT_EQ(c.result, 2);
    EXPECT_EQ(c.bytes, (std::vector<unsigned char>{'a', 'b'}));
}

TEST_F(ZorTapiGsmAlphabet, StopsAtNulAndAtSourceLength)
{
    EXPECT_EQ(convert(std::u16string(u"ab\0cd", 5), 10).result, 2);
    const unsigned short text[] = {'a', 'b', 'c', 0};
    unsigned char out[8] = {};
    EXPECT_EQ(TAPI_UTIL_ConvertUcs2StringToGsmString(text, 2, out, 8), 2);
    // The library hands over the terminator inside srcLen: still a GSM text.
    EXPECT_EQ(TAPI_UTIL_ConvertUcs2StringToGsmString(text, 4, out, 4), 3);
}

TEST_F(ZorTapiGsmAlphabet, EmptyAndNullArguments)
{
    unsigned char out[4] = {};
    const unsigned short text[] = {'a'};
    EXPECT_EQ(TAPI_UTIL_ConvertUcs2StringToGsmString(nullptr, 0, nullptr, 0), 0);
    EXPECT_EQ(TAPI_UTIL_ConvertUcs2StringToGsmString(text, 1, nullptr, 0), 0);
    EXPECT_EQ(TAPI_UTIL_ConvertUcs2StringToGsmString(nullptr, 1, out, 4), TAPI_UTIL_NOT_GSM);
    EXPECT_EQ(TAPI_UTIL_ConvertUcs2StringToGsmString(text, 1, nullptr, 4), TAPI_UTIL_NOT_GSM);
}

TEST_F(ZorTapiGsmAlphabet, InjectedFaultIsTheReturnValue)
{
    ZorHost::injectFault(QStringLiteral("TAPI_UTIL_ConvertUcs2StringToGsmString"), 65535);
    EXPECT_EQ(convert(u"abc", 4).result, TAPI_UTIL_NOT_GSM);
    EXPECT_EQ(convert(u"abc", 4).result, 3);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_UTIL_ConvertUcs2StringToGsmString")), 2);
}

} // namespace
