// --json of every verb: one JSON object that holds the same values as the text lines.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <ostream>
#include <string>

namespace {

// The text a person sees for a JSON value, written out here as the manual describes it.
QString shown(const QJsonValue& v)
{
    if (v.isBool())
        return v.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    if (v.isDouble())
        return QString::number(v.toInteger());
    if (v.isString())
        return v.toString();
    return QStringLiteral("(none)");
}

void expectedLines(const QString& key, const QJsonValue& v, QStringList* lines)
{
    if (v.isObject()) {
        const QJsonObject o = v.toObject();
        for (const QString& member : o.keys())
            expectedLines(key + QLatin1Char('.') + member, o.value(member), lines);
    } else if (v.isArray() && !v.toArray().isEmpty() && (v.toArray().first().isObject() || v.toArray().first().isArray())) {
        const QJsonArray a = v.toArray();
        for (qsizetype i = 0; i < a.size(); ++i)
            expectedLines(QStringLiteral("%1[%2]").arg(key).arg(i), a.at(i), lines);
    } else if (v.isArray()) {
        QStringList items;
        for (const QJsonValue& item : v.toArray())
            items.append(shown(item));
        lines->append(key + QStringLiteral(": ") + (items.isEmpty() ? QStringLiteral("(none)") : items.join(QStringLiteral(", "))));
    } else {
        lines->append(key + QStringLiteral(": ") + shown(v));
    }
}

struct JsonCase {
    const char* name;
    QStringList args;
};

std::ostream& operator<<(std::ostream& os, const JsonCase& c)
{
    return os << c.name;
}

class MsgctrJsonTest : public HostRootTest, public ::testing::WithParamInterface<JsonCase> {};

TEST_P(MsgctrJsonTest, JsonHoldsTheValuesOfTheText)
{
    const MsgctrResult text = runMsgctr(root(), GetParam().args);
    ASSERT_EQ(text.exitCode, 0) << qPrintable(text.err);
    // A second run of a writing verb must see the same state: reset in between.
    ASSERT_EQ(runMsgctr(root(), words({"platform", "reset"})).exitCode, 0);
    const MsgctrResult json = runMsgctr(root(), QStringList{QStringLiteral("--json")} + GetParam().args);
    ASSERT_EQ(json.exitCode, 0) << qPrintable(json.err);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json.out.toUtf8(), &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError) << qPrintable(error.errorString());
    ASSERT_TRUE(document.isObject());
    ASSERT_FALSE(document.object().isEmpty());
    QStringList lines;
    const QJsonObject object = document.object();
    for (const QString& key : object.keys())
        expectedLines(key, object.value(key), &lines);
    QStringList textLines = text.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.sort();
    textLines.sort();
    EXPECT_EQ(textLines, lines);
}

INSTANTIATE_TEST_SUITE_P(
    EveryVerb, MsgctrJsonTest,
    ::testing::Values(
        JsonCase{"addrNames", words({"addr", "names", "--max", "6", "+4930111; a@b"})},
        JsonCase{"addrNormalize", words({"addr", "normalize", "1 2;3"})},
        JsonCase{"addrSplit", words({"addr", "split", "123,a@b"})},
        JsonCase{"platformCalls", words({"platform", "calls", "TAPI_CB_GetStatus"})},
        JsonCase{"platformFault", words({"platform", "fault", "TAPI_CB_GetStatus", "5"})},
        JsonCase{"platformFaults", words({"platform", "faults", "clear"})},
        JsonCase{"platformFeature", words({"platform", "feature"})},
        JsonCase{"platformFeatureOne", words({"platform", "feature", "2040", "off"})},
        JsonCase{"platformFlexbit", words({"platform", "flexbit"})},
        JsonCase{"platformFlexbitUnset", words({"platform", "flexbit", "230", "--unset"})},
        JsonCase{"platformLang", words({"platform", "lang", "de-de"})},
        JsonCase{"platformReset", words({"platform", "reset"})},
        JsonCase{"platformRoot", words({"platform", "root"})},
        JsonCase{"settingsGet", words({"settings", "get"})},
        JsonCase{"settingsList", words({"settings", "list", "GROUP_MSGCTR_SMS"})},
        JsonCase{"settingsSetTextList", words({"settings", "set", "GROUP_MSGCTR_SMS", "USER_DEF_QUICK_TEXTS", "a", "b"})},
        JsonCase{"status", words({"status"})},
        JsonCase{"tapiCbState", words({"tapi", "cb-state", "3"})},
        JsonCase{"tapiChannelAdd", words({"tapi", "channel-add", "50"})},
        JsonCase{"tapiChannels", words({"tapi", "channels"})},
        JsonCase{"tapiCphsMailbox", words({"tapi", "cphs-mailbox", "1", "555", "Line one"})},
        JsonCase{"tapiEmailGateway", words({"tapi", "email-gateway"})},
        JsonCase{"tapiGprs", words({"tapi", "gprs", "on"})},
        JsonCase{"tapiMailCount", words({"tapi", "mail-count", "1", "2"})},
        JsonCase{"tapiMailbox", words({"tapi", "mailbox", "0"})},
        JsonCase{"tapiService", words({"tapi", "service", "2348"})},
        JsonCase{"tapiShow", words({"tapi", "show"})},
        JsonCase{"tapiSimStatus", words({"tapi", "sim-status"})},
        JsonCase{"tapiSlotCount", words({"tapi", "slot-count", "2"})},
        JsonCase{"tapiSlots", words({"tapi", "slots", "1", "9"})},
        JsonCase{"tapiSmsc", words({"tapi", "smsc"})},
        JsonCase{"tapiTransportMode", words({"tapi", "transport-mode"})},
        JsonCase{"tapiTransportSupported", words({"tapi", "transport-supported"})},
        JsonCase{"tapiUsimRule", words({"tapi", "usim-rule", "2"})},
        JsonCase{"tapiVp", words({"tapi", "vp", "86401"})},
        JsonCase{"tapiWaiting", words({"tapi", "waiting", "2", "yes"})},
        JsonCase{"textAscii", words({"text", "ascii", "a\xE2\x82\xAC"})},
        JsonCase{"textCrc", words({"text", "crc", "0102"})},
        JsonCase{"textEmailDecode", words({"text", "email-decode", "a@b(s)body"})},
        JsonCase{"textEmailEncode", words({"text", "email-encode", "--to", "1,a@b", "--subject", "s", "body"})},
        JsonCase{"textHex", words({"text", "hex", "255"})},
        JsonCase{"textIso8601", words({"text", "iso8601", "to", "0"})},
        JsonCase{"textSegments", words({"text", "segments", "hello"})},
        JsonCase{"textSegmentsPerRecipient", words({"text", "segments", "--to", "1,a@b", "hello"})},
        JsonCase{"textStrip", words({"text", "strip", " a b "})}),
    [](const ::testing::TestParamInfo<JsonCase>& info) { return std::string(info.param.name); });

} // namespace
