#include "ForkedScenario.h"
#include "HostRootTest.h"
#include "RowName.h"
#include "ReportLines.h"
#include "SourceLine.h"

#include "MSGCTR_ENG_TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <QFile>

#include <climits>
#include <string>
#include <vector>

namespace {

// The wrapper's report sites, found in its source by the statements that report there.
using Site = std::vector<const char*>;
const Site kSiteU8VpOfMaximumReport{"MSGCTR_ENG_TAPI::u8VpOfMaximum()", "MSGCTR_ASSERT_FAIL_REPORT(\"false\")"};
const Site kSiteToU8VpFromStruVpReport{"MSGCTR_ENG_TAPI::toU8VpFromStruVp(", "MSGCTR_ASSERT_FAIL_REPORT(\"false\")"};
const Site kSiteValueInUnitCheck{"MSGCTR_CHECK(uvs.m_nMin <= struVp.value && struVp.value <= uvs.m_nMax)"};
const Site kSiteNotPositiveInputCheck{"MSGCTR_ASSERT_FAIL_REPORT(\"(nSecondSInput > 0) || "};
const Site kSiteZeroSecondsCheck{"MSGCTR_CHECK(nSecondS > 0);"};
const Site kSiteUnknownUnitReport{"MSGCTR_ASSERT_FAIL_REPORT(\"nSecondS > 0\");"};
const Site kSiteSetFirstTrace{"MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(", "MSGCTR_TRACE_REPORT()"};
const Site kSiteSetCall{"TAPI_SMS_SetServiceCenter(szServiceCenter)"};
const Site kSiteGetCall{"TAPI_SMS_GetServiceCenter(phoneNumber)"};
const Site kSiteGetNumberTrace{"MSGCTR_TRACE_REPORT() << MSGCTR_VAL(strSvctrNumber);"};
const Site kSiteGetEmptyCheck{"MSGCTR_CHECK(!strSvctrNumber.isEmpty());"};
const Site kSiteAvailCall{"TAPI_SMS_NotifyMeStorageAvail()"};
const Site kSiteFullCall{"TAPI_SMS_NotifyMeStorageFull()"};
const Site kSiteDebugRecord{"\"supportsSmsOverGprsFeature\", __LINE__"};
const Site kSiteFeatureCheck{"MSGCTR_CHECK(supportsSmsOverGprsFeature());"};
const Site kSiteModeCheck{"MSGCTR_CHECK(TAPI_RESULT_SUCC == TAPI_SMS_GetSmsTransportMode("};
const Site kSiteSetModeCall{"TAPI_SMS_SetSmsTransportMode(mode)"};

int lineOf(const Site& site)
{
    return sourceLine(QStringLiteral("src/tapi/MSGCTR_ENG_TAPI.cpp"), site);
}

// The prefix of a report line from this wrapper, with "<T>" where the tick count stands.
QString at(const Site& site, const char* function)
{
    return QStringLiteral("MSGCTR_ENG_TAPI.cpp(%1)[%2]<T>: ").arg(lineOf(site)).arg(QLatin1String(function));
}

_TAPI_SMS_EXPIRE_PERIOD_DATA_S pair(unsigned int unit, unsigned char value)
{
    _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp;
    struVp.unit = static_cast<decltype(struVp.unit)>(unit);
    struVp.value = value;
    return struVp;
}

QByteArray platformServiceCenter()
{
    char buffer[64] = {};
    EXPECT_EQ(TAPI_SMS_GetServiceCenter(buffer), TAPI_RESULT_SUCC);
    return QByteArray(buffer);
}

QByteArray debugFile()
{
    QFile file(ZorHost::devicePath(QStringLiteral("/tmp/message_log.data")));
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

class TapiTest : public HostRootTest {};

// ---- result mapping

struct MappingCase {
    int tapiResult;
    MSGCTR_ERRCODE msgctrErrcode;
};

void PrintTo(const MappingCase& c, std::ostream* os)
{
    *os << "TAPI result " << c.tapiResult;
}

class TapiMappingTest : public HostRootTest, public ::testing::WithParamInterface<MappingCase> {};

TEST_P(TapiMappingTest, MapsTheResult)
{
    const MappingCase c = GetParam();
    EXPECT_EQ(MSGCTR_ENG_TAPI::msgctrErrcodeFromTapiResult(static_cast<_TAPI_RESULT_E>(c.tapiResult)),
              c.msgctrErrcode);
}

class TapiFailedCallTest : public TapiMappingTest {};

TEST_P(TapiFailedCallTest, GetterReturnsTheMappedResult)
{
    const MappingCase c = GetParam();
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_GetServiceCenter"), c.tapiResult);
    QString number = QStringLiteral("untouched");
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&number), c.msgctrErrcode);
    EXPECT_EQ(number, QStringLiteral("untouched"));
    const QString code = QString::number(c.msgctrErrcode);
    const QString result = QString::number(c.tapiResult);
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteGetCall, "errcodeGetSmsServiceCenterNumber"),
                        at(kSiteGetCall, "errcodeGetSmsServiceCenterNumber")
                            + QStringLiteral("phoneNumber = \"\"(PCSTR8, len=0), tapiResult = %1(S32,4), ").arg(result),
                        at(kSiteGetCall, "errcodeGetSmsServiceCenterNumber")
                            + QStringLiteral("assert fail at \"false\"; msgctrErrcode = %1(S32,4), "
                                             "tapiResult = %2(S32,4), ")
                                  .arg(code, result)}));
}

const MappingCase kFailures[] = {{509, 10026}, {305, 10083}, {819, 10010}, {22, 10084},
                                 {7, 100007},   {1, 100001},   {510, 100510}, {-1, 99999}};

INSTANTIATE_TEST_SUITE_P(Success, TapiMappingTest, ::testing::Values(MappingCase{0, 0}),
                         [](const auto& info) { return rowName("TapiResult", info.param.tapiResult); });
INSTANTIATE_TEST_SUITE_P(Table, TapiMappingTest, ::testing::ValuesIn(kFailures),
                         [](const auto& info) { return rowName("TapiResult", info.param.tapiResult); });
INSTANTIATE_TEST_SUITE_P(Table, TapiFailedCallTest, ::testing::ValuesIn(kFailures),
                         [](const auto& info) { return rowName("TapiResult", info.param.tapiResult); });

TEST_F(TapiTest, TracingIsAlwaysOn)
{
    EXPECT_TRUE(MSGCTR_ENG_TAPI::traceTAPI());
}

// ---- validity period: seconds to pair, both overloads

struct SecondsCase {
    int input;
    unsigned int unit;
    unsigned char value;
    int stored;
};

void PrintTo(const SecondsCase& c, std::ostream* os)
{
    *os << c.input << " s";
}

class TapiSecondsTest : public HostRootTest, public ::testing::WithParamInterface<SecondsCase> {};

TEST_P(TapiSecondsTest, TwoArgumentFormGivesThePairAndTheAdjustedSeconds)
{
    const SecondsCase c = GetParam();
    int stored = -12345;
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp = MSGCTR_ENG_TAPI::toStruVpFromSecondS(&stored, c.input);
    EXPECT_EQ(static_cast<unsigned int>(struVp.unit), c.unit);
    EXPECT_EQ(struVp.value, c.value);
    EXPECT_EQ(stored, c.stored);
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_P(TapiSecondsTest, OneArgumentFormGivesTheSamePair)
{
    const SecondsCase c = GetParam();
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp = MSGCTR_ENG_TAPI::toStruVpFromSecondS(c.input);
    EXPECT_EQ(static_cast<unsigned int>(struVp.unit), c.unit);
    EXPECT_EQ(struVp.value, c.value);
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_P(TapiSecondsTest, OctetAndSecondsOfThePair)
{
    const SecondsCase c = GetParam();
    const int perUnit[] = {300, 1800, 86400, 604800};
    const int octetBase[] = {-1, 119, 166, 192};
    EXPECT_EQ(int(MSGCTR_ENG_TAPI::toU8VpFromSecondS(c.input)), octetBase[c.unit] + c.value);
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(MSGCTR_ENG_TAPI::toStruVpFromSecondS(c.input)),
              perUnit[c.unit] * c.value);
    EXPECT_EQ(reportLines(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Table, TapiSecondsTest,
    ::testing::Values(SecondsCase{0, 3, 63, 38102400}, SecondsCase{-1, 3, 63, 38102400},
                      SecondsCase{-300, 3, 63, 38102400}, SecondsCase{INT_MIN, 3, 63, 38102400},
                      SecondsCase{1, 0, 1, 300}, SecondsCase{299, 0, 1, 300}, SecondsCase{300, 0, 1, 300},
                      SecondsCase{599, 0, 1, 599}, SecondsCase{600, 0, 2, 600}, SecondsCase{43200, 0, 144, 43200},
                      SecondsCase{43201, 1, 25, 45000}, SecondsCase{44999, 1, 25, 45000},
                      SecondsCase{45000, 1, 25, 45000}, SecondsCase{45001, 1, 25, 45001},
                      SecondsCase{86400, 1, 48, 86400}, SecondsCase{86401, 2, 2, 172800},
                      SecondsCase{172799, 2, 2, 172800}, SecondsCase{259199, 2, 2, 259199},
                      SecondsCase{2592000, 2, 30, 2592000}, SecondsCase{2592001, 3, 5, 3024000},
                      SecondsCase{3024000, 3, 5, 3024000}, SecondsCase{38102399, 3, 62, 38102399},
                      SecondsCase{38102400, 3, 63, 38102400}, SecondsCase{38102401, 3, 63, 38102400},
                      SecondsCase{40000000, 3, 63, 38102400}, SecondsCase{INT_MAX, 3, 63, 38102400}),
                         [](const auto& info) { return rowName(info.param.input, "Seconds"); });

// ---- validity period: pair to octet, every unit at its edges

struct OctetCase {
    unsigned int unit;
    unsigned char value;
    unsigned char octet;
};

void PrintTo(const OctetCase& c, std::ostream* os)
{
    *os << "unit " << c.unit << " value " << int(c.value);
}

class TapiOctetTest : public HostRootTest, public ::testing::WithParamInterface<OctetCase> {};

TEST_P(TapiOctetTest, PairGivesTheOctet)
{
    const OctetCase c = GetParam();
    EXPECT_EQ(int(MSGCTR_ENG_TAPI::toU8VpFromStruVp(pair(c.unit, c.value))), int(c.octet));
    EXPECT_EQ(reportLines(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Table, TapiOctetTest,
                         ::testing::Values(OctetCase{0, 1, 0}, OctetCase{0, 2, 1}, OctetCase{0, 143, 142},
                                           OctetCase{0, 144, 143}, OctetCase{1, 25, 144}, OctetCase{1, 26, 145},
                                           OctetCase{1, 47, 166}, OctetCase{1, 48, 167}, OctetCase{2, 2, 168},
                                           OctetCase{2, 3, 169}, OctetCase{2, 29, 195}, OctetCase{2, 30, 196},
                                           OctetCase{3, 5, 197}, OctetCase{3, 6, 198}, OctetCase{3, 62, 254},
                                           OctetCase{3, 63, 255}),
                         [](const auto& info) { return rowName("Unit", info.param.unit, "Value", int(info.param.value)); });

struct OutsideCase {
    unsigned int unit;
    unsigned char value;
};

void PrintTo(const OutsideCase& c, std::ostream* os)
{
    *os << "unit " << c.unit << " value " << int(c.value);
}

class TapiOutsideTest : public HostRootTest, public ::testing::WithParamInterface<OutsideCase> {};

TEST_P(TapiOutsideTest, UnrepresentablePairFallsBackToTheMaximum)
{
    const OutsideCase c = GetParam();
    EXPECT_EQ(int(MSGCTR_ENG_TAPI::toU8VpFromStruVp(pair(c.unit, c.value))), 255);
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteToU8VpFromStruVpReport, "toU8VpFromStruVp")
                        + QStringLiteral("assert fail at \"false\"; struVp.unit = %1(S32,4), "
                                         "struVp.value = %2/0x%3(U8,1), ")
                              .arg(c.unit)
                              .arg(c.value)
                              .arg(QString::number(c.value, 16).toUpper().rightJustified(2, QLatin1Char('0')))}));
}

INSTANTIATE_TEST_SUITE_P(Table, TapiOutsideTest,
                         ::testing::Values(OutsideCase{0, 0}, OutsideCase{0, 145}, OutsideCase{1, 24},
                                           OutsideCase{1, 49}, OutsideCase{2, 1}, OutsideCase{2, 31},
                                           OutsideCase{3, 4}, OutsideCase{3, 64}, OutsideCase{3, 255},
                                           OutsideCase{4, 1}),
                         [](const auto& info) { return rowName("Unit", info.param.unit, "Value", int(info.param.value)); });

TEST_F(TapiTest, MaximumIsSixtyThreeWeeks)
{
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp = MSGCTR_ENG_TAPI::struVpOfMaximum();
    EXPECT_EQ(static_cast<unsigned int>(struVp.unit), 3u);
    EXPECT_EQ(struVp.value, 63);
    EXPECT_EQ(int(MSGCTR_ENG_TAPI::u8VpOfMaximum()), 255);
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(struVp), 38102400);
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_F(TapiTest, OctetIsAlwaysMadeByThePlatform)
{
    MSGCTR_ENG_TAPI::toU8VpFromStruVp(pair(1, 30));
    MSGCTR_ENG_TAPI::u8VpOfMaximum();
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_ExpirePeriodToUINT8")), 2);
}

TEST_F(TapiTest, MaximumThatCannotBeConvertedGivesZero)
{
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_ExpirePeriodToUINT8"), 0, 2);
    EXPECT_EQ(int(MSGCTR_ENG_TAPI::toU8VpFromStruVp(pair(0, 1))), 0);
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteToU8VpFromStruVpReport, "toU8VpFromStruVp")
                            + QStringLiteral("assert fail at \"false\"; struVp.unit = 0(S32,4), "
                                             "struVp.value = 1/0x01(U8,1), "),
                        at(kSiteU8VpOfMaximumReport, "u8VpOfMaximum")
                            + QStringLiteral("assert fail at \"false\"; struVp.unit = 3(S32,4), "
                                             "struVp.value = 63/0x3F(U8,1), ")}));
}

// ---- validity period: pair to seconds

TEST_F(TapiTest, UnknownUnitGivesMinusOneWithAReport)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(pair(4, 10)), -1);
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteUnknownUnitReport, "toSecondSFromStruVp")
                        + QStringLiteral("assert fail at \"nSecondS > 0\"; ")}));
}

TEST_F(TapiTest, ValueZeroGivesZeroSecondsWithAReport)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(pair(2, 0)), 0);
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteZeroSecondsCheck, "toSecondSFromStruVp")
                        + QStringLiteral("assert fail at \"nSecondS > 0\"; ")}));
}

TEST_F(TapiTest, SecondsOfEveryUnit)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(pair(0, 144)), 43200);
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(pair(1, 25)), 45000);
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(pair(2, 30)), 2592000);
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(pair(3, 5)), 3024000);
    // Values outside a unit's range still multiply out: only the octet conversion refuses them.
    EXPECT_EQ(MSGCTR_ENG_TAPI::toSecondSFromStruVp(pair(3, 255)), 255 * 604800);
    EXPECT_EQ(reportLines(), QStringList());
}

// ---- service centre: set

TEST_F(TapiTest, SetServiceCenterTracesAndReachesThePlatform)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(QStringLiteral("+4915550100")), 0);
    EXPECT_EQ(platformServiceCenter(), QByteArray("+4915550100"));
    const QString number = QStringLiteral("rSvctrNumber = \"+4915550100\"(QString, len=11), ");
    const QString buffer = QStringLiteral("szServiceCenter = \"+4915550100\"(PCSTR8, len=11), ");
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteSetFirstTrace, "errcodeSetSmsServiceCenterNumber") + number,
                        at(kSiteSetCall, "errcodeSetSmsServiceCenterNumber") + number + buffer,
                        at(kSiteSetCall, "errcodeSetSmsServiceCenterNumber") + number + buffer
                            + QStringLiteral("tapiResult = 0(S32,4), ")}));
}

TEST_F(TapiTest, FortyOneCharactersReachThePlatformWhole)
{
    const QString number = QStringLiteral("+1234567890123456789012345678901234567890");
    ASSERT_EQ(number.length(), 41);
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(number), 0);
    EXPECT_EQ(platformServiceCenter(), number.toLatin1());
}

class TapiLongNumberTest : public HostRootTest, public ::testing::WithParamInterface<int> {};

TEST_P(TapiLongNumberTest, LongerNumberArrivesCutToFortyOneSilently)
{
    QString number = QStringLiteral("+");
    while (number.length() < GetParam())
        number += QChar(char16_t(u'0' + number.length() % 10));
    const QString cut = number.left(41);
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(number), 0);
    EXPECT_EQ(platformServiceCenter(), cut.toLatin1());
    const QString whole = QStringLiteral("rSvctrNumber = \"%1\"(QString, len=%2), ").arg(number).arg(number.length());
    const QString buffer = QStringLiteral("szServiceCenter = \"%1\"(PCSTR8, len=41), ").arg(cut);
    // The cut itself is not reported: the three trace lines are all there is.
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteSetFirstTrace, "errcodeSetSmsServiceCenterNumber") + whole,
                        at(kSiteSetCall, "errcodeSetSmsServiceCenterNumber") + whole + buffer,
                        at(kSiteSetCall, "errcodeSetSmsServiceCenterNumber") + whole + buffer
                            + QStringLiteral("tapiResult = 0(S32,4), ")}));
}

INSTANTIATE_TEST_SUITE_P(Lengths, TapiLongNumberTest, ::testing::Values(42, 43, 60, 200),
                         [](const auto& info) { return rowName("Digits", info.param); });

TEST_F(TapiTest, SetServiceCenterFailureIsReportedWithNumberAndResult)
{
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_SetServiceCenter"), 509);
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(QStringLiteral("12")), 10026);
    const QString number = QStringLiteral("rSvctrNumber = \"12\"(QString, len=2), ");
    const QString buffer = QStringLiteral("szServiceCenter = \"12\"(PCSTR8, len=2), ");
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteSetFirstTrace, "errcodeSetSmsServiceCenterNumber") + number,
                        at(kSiteSetCall, "errcodeSetSmsServiceCenterNumber") + number + buffer,
                        at(kSiteSetCall, "errcodeSetSmsServiceCenterNumber") + number + buffer
                            + QStringLiteral("tapiResult = 509(S32,4), "),
                        at(kSiteSetCall, "errcodeSetSmsServiceCenterNumber")
                            + QStringLiteral("assert fail at \"MSGCTR_ERRCODE_IS_SUCCESS( msgctrErrcode )\"; "
                                             "msgctrErrcode = 10026(S32,4), ")
                            + number + QStringLiteral("tapiResult = 509(S32,4), ")}));
}

TEST_F(TapiTest, SetServiceCenterSendsLatin1)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(QStringLiteral("+49\u00e9")), 0);
    EXPECT_EQ(platformServiceCenter(), QByteArray("+49\xe9"));
}

// ---- service centre: get

TEST_F(TapiTest, GetServiceCenterDeliversTheNumberWithItsTraces)
{
    ASSERT_EQ(TAPI_SMS_SetServiceCenter("+3312345"), TAPI_RESULT_SUCC);
    QString number;
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&number), 0);
    EXPECT_EQ(number, QStringLiteral("+3312345"));
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteGetCall, "errcodeGetSmsServiceCenterNumber"),
                        at(kSiteGetCall, "errcodeGetSmsServiceCenterNumber")
                            + QStringLiteral("phoneNumber = \"+3312345\"(PCSTR8, len=8), tapiResult = 0(S32,4), "),
                        at(kSiteGetNumberTrace, "errcodeGetSmsServiceCenterNumber")
                            + QStringLiteral("strSvctrNumber = \"+3312345\"(QString, len=8), ")}));
}

TEST_F(TapiTest, EmptyServiceCenterIsReportedAndStillDelivered)
{
    ASSERT_EQ(TAPI_SMS_SetServiceCenter(""), TAPI_RESULT_SUCC);
    takeReportLines();
    QString number = QStringLiteral("old");
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&number), 0);
    EXPECT_TRUE(number.isEmpty());
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteGetCall, "errcodeGetSmsServiceCenterNumber"),
                        at(kSiteGetCall, "errcodeGetSmsServiceCenterNumber")
                            + QStringLiteral("phoneNumber = \"\"(PCSTR8, len=0), tapiResult = 0(S32,4), "),
                        at(kSiteGetNumberTrace, "errcodeGetSmsServiceCenterNumber")
                            + QStringLiteral("strSvctrNumber = \"\"(QString, len=0), "),
                        at(kSiteGetEmptyCheck, "errcodeGetSmsServiceCenterNumber")
                            + QStringLiteral("assert fail at \"!strSvctrNumber.isEmpty()\"; ")}));
}

TEST_F(TapiTest, ServiceCenterRoundTrip)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(QStringLiteral("+447700900123")), 0);
    QString number;
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&number), 0);
    EXPECT_EQ(number, QStringLiteral("+447700900123"));
}

// ---- storage notifications
// The wrapper remembers the last notice for the whole process; each scenario starts from a fresh one.

TEST_F(TapiTest, FirstFullNoticeReachesThePlatformWithItsTraces)
{
    runForkedScenario([&] {
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 0);
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageFull")), 1);
        EXPECT_EQ(ticksMasked(reportLines()),
                  expected({at(kSiteFullCall, "errcodeNotifTapiThatFlashFull"),
                            at(kSiteFullCall, "errcodeNotifTapiThatFlashFull")
                                + QStringLiteral("tapiResult = 0(S32,4), ")}));
    });
}

TEST_F(TapiTest, FirstAvailableNoticeReachesThePlatform)
{
    runForkedScenario([&] {
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashAvailable(), 0);
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageAvail")), 1);
        EXPECT_EQ(ticksMasked(reportLines()),
                  expected({at(kSiteAvailCall, "errcodeNotifTapiThatFlashAvailable"),
                            at(kSiteAvailCall, "errcodeNotifTapiThatFlashAvailable")
                                + QStringLiteral("tapiResult = 0(S32,4), ")}));
    });
}

TEST_F(TapiTest, SecondFullNoticeInARowDoesNotCallThePlatform)
{
    runForkedScenario([&] {
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 0);
        takeReportLines();
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 0);
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageFull")), 1);
        EXPECT_EQ(reportLines(), QStringList());
    });
}

TEST_F(TapiTest, FullNoticeGoesOutAgainAfterAnAvailableOne)
{
    runForkedScenario([&] {
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 0);
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashAvailable(), 0);
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashAvailable(), 0);
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 0);
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageFull")), 2);
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageAvail")), 1);
    });
}

TEST_F(TapiTest, FailedFullNoticeIsReportedAndRetried)
{
    runForkedScenario([&] {
        ZorHost::injectFault(QStringLiteral("TAPI_SMS_NotifyMeStorageFull"), 819);
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 10010);
        EXPECT_EQ(ticksMasked(reportLines()),
                  expected({at(kSiteFullCall, "errcodeNotifTapiThatFlashFull"),
                            at(kSiteFullCall, "errcodeNotifTapiThatFlashFull")
                                + QStringLiteral("tapiResult = 819(S32,4), "),
                            at(kSiteFullCall, "errcodeNotifTapiThatFlashFull")
                                + QStringLiteral("assert fail at \"false\"; msgctrErrcode = 10010(S32,4), "
                                                 "tapiResult = 819(S32,4), ")}));
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 0);
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageFull")), 2);
    });
}

TEST_F(TapiTest, FailedAvailableNoticeKeepsTheFullState)
{
    runForkedScenario([&] {
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 0);
        ZorHost::injectFault(QStringLiteral("TAPI_SMS_NotifyMeStorageAvail"), 22);
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashAvailable(), 10084);
        // Still "full" as far as the wrapper knows: another full notice is not passed on.
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull(), 0);
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageFull")), 1);
        EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashAvailable(), 0);
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageAvail")), 2);
    });
}

// ---- SMS over GPRS

QByteArray debugRecord(int result)
{
    return QStringLiteral("\n\nw70411: MSGCTR_ENG_TAPI, supportsSmsOverGprsFeature, %1 \n"
                          "w70411: \"TAPI_SMS_GetSmsTransportMode: %2\"\n")
        .arg(lineOf(kSiteDebugRecord))
        .arg(result)
        .toLatin1();
}

TEST_F(TapiTest, FeatureIsSupportedWhenTheModeCanBeRead)
{
    EXPECT_TRUE(MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature());
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_GetSmsTransportMode")), 2);
    EXPECT_EQ(debugFile(), debugRecord(0));
}

TEST_F(TapiTest, EveryFeatureQueryAppendsOneRecord)
{
    MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature();
    MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature();
    EXPECT_EQ(debugFile(), debugRecord(0) + debugRecord(0));
}

TEST_F(TapiTest, FeatureIsAbsentWhenTheModeCannotBeRead)
{
    ZorHost::setSmsTransportModeSupported(false);
    EXPECT_FALSE(MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature());
    unsigned char mode = 0;
    const int result = TAPI_SMS_GetSmsTransportMode(&mode);
    EXPECT_NE(result, 0);
    EXPECT_EQ(debugFile(), debugRecord(result));
}

TEST_F(TapiTest, DebugRecordShowsTheSecondResult)
{
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_GetSmsTransportMode"), 305, 1);
    EXPECT_FALSE(MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature());
    EXPECT_EQ(debugFile(), debugRecord(0));
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_GetSmsTransportMode"), 305, 2);
    EXPECT_FALSE(MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature());
    EXPECT_EQ(debugFile(), debugRecord(0) + debugRecord(305));
}

TEST_F(TapiTest, SwitchFollowsTheTransportMode)
{
    EXPECT_FALSE(MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled());
    EXPECT_EQ(MSGCTR_ENG_TAPI::enableSmsOverGprsSwitch(true), 0);
    EXPECT_TRUE(MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled());
    unsigned char mode = 0;
    EXPECT_EQ(TAPI_SMS_GetSmsTransportMode(&mode), TAPI_RESULT_SUCC);
    EXPECT_EQ(mode, 2);
    EXPECT_EQ(MSGCTR_ENG_TAPI::enableSmsOverGprsSwitch(false), 0);
    EXPECT_FALSE(MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled());
    EXPECT_EQ(TAPI_SMS_GetSmsTransportMode(&mode), TAPI_RESULT_SUCC);
    EXPECT_EQ(mode, 1);
}

TEST_F(TapiTest, EnableTracesTheMode)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::enableSmsOverGprsSwitch(true), 0);
    const QString values = QStringLiteral("bEnable = true(bool,1), mode = 2/0x02(U8,1), ");
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteSetModeCall, "enableSmsOverGprsSwitch") + values,
                        at(kSiteSetModeCall, "enableSmsOverGprsSwitch") + values
                            + QStringLiteral("tapiResult = 0(S32,4), ")}));
}

TEST_F(TapiTest, FailedEnableReportsTheCodeOnly)
{
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_SetSmsTransportMode"), 7);
    EXPECT_EQ(MSGCTR_ENG_TAPI::enableSmsOverGprsSwitch(false), 100007);
    const QString values = QStringLiteral("bEnable = false(bool,1), mode = 1/0x01(U8,1), ");
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteSetModeCall, "enableSmsOverGprsSwitch") + values,
                        at(kSiteSetModeCall, "enableSmsOverGprsSwitch") + values
                            + QStringLiteral("tapiResult = 7(S32,4), "),
                        at(kSiteSetModeCall, "enableSmsOverGprsSwitch")
                            + QStringLiteral("assert fail at \"false\"; msgctrErrcode = 100007(S32,4), ")}));
}

TEST_F(TapiTest, SwitchWithoutTheFeatureIsReportedAndOff)
{
    ZorHost::setSmsTransportModeSupported(false);
    EXPECT_FALSE(MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled());
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteFeatureCheck, "smsOverGprsSwitchIsEnabled")
                            + QStringLiteral("assert fail at \"supportsSmsOverGprsFeature()\"; "),
                        at(kSiteModeCheck, "smsOverGprsSwitchIsEnabled")
                            + QStringLiteral("assert fail at \"TAPI_RESULT_SUCC == "
                                             "TAPI_SMS_GetSmsTransportMode( &mode )\"; ")}));
}

TEST_F(TapiTest, SwitchIsOffWhenTheModeReadFails)
{
    ASSERT_EQ(MSGCTR_ENG_TAPI::enableSmsOverGprsSwitch(true), 0);
    takeReportLines();
    // The two reads of the feature test and the switch's own read all fail: the preset mode stands.
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_GetSmsTransportMode"), 509, 3);
    EXPECT_FALSE(MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled());
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_GetSmsTransportMode")), 3);
    EXPECT_EQ(debugFile(), debugRecord(509));
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kSiteFeatureCheck, "smsOverGprsSwitchIsEnabled")
                            + QStringLiteral("assert fail at \"supportsSmsOverGprsFeature()\"; "),
                        at(kSiteModeCheck, "smsOverGprsSwitchIsEnabled")
                            + QStringLiteral("assert fail at \"TAPI_RESULT_SUCC == "
                                             "TAPI_SMS_GetSmsTransportMode( &mode )\"; ")}));
}

// ---- GSM alphabet

struct GsmCase {
    const char16_t* text;
    bool onlyGsm;
};

void PrintTo(const GsmCase& c, std::ostream* os)
{
    *os << QString::fromUtf16(c.text).toStdString();
}

class TapiGsmTest : public HostRootTest, public ::testing::WithParamInterface<GsmCase> {};

TEST_P(TapiGsmTest, TellsGsmTextApart)
{
    const GsmCase c = GetParam();
    EXPECT_EQ(MSGCTR_ENG_TAPI::containsOnlyGSMChar(QString::fromUtf16(c.text)), c.onlyGsm);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_UTIL_ConvertUcs2StringToGsmString")), 1);
}

INSTANTIATE_TEST_SUITE_P(Table, TapiGsmTest,
                         ::testing::Values(GsmCase{u"", true}, GsmCase{u"Hello, world!", true},
                                           GsmCase{u"@\u00a3$\u00a5\u00e8\u00e9\u00f9\u00ec\u00f2\u00c7", true},
                                           GsmCase{u"\u0394\u03a6\u0393\u039b\u03a9", true},
                                           GsmCase{u"{}[]~\\|^\u20ac", true}, GsmCase{u"\u00e0 la carte", true},
                                           GsmCase{u"\u00e1", false}, GsmCase{u"price: 5\u00a2", false},
                                           GsmCase{u"\u4e2d\u6587", false}, GsmCase{u"ok \U0001F600", false},
                                           GsmCase{u"tab\there", false}),
                         [](const auto& info) { return rowName(std::u16string(info.param.text)); });

} // namespace
