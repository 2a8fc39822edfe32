#include "HostRootTest.h"

#include "SETUP_Utility.h"
#include "ZorHostControl.h"
#include "ZorHostSetupControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

namespace {

class SetupUtilityTest : public HostRootTest {
protected:
    QString featureFile() const { return root() + QStringLiteral("/state/setup/features.conf"); }
};

struct FactoryBit {
    int number;
    bool on;
};

class SetupUtilityFactoryBitTest : public SetupUtilityTest, public ::testing::WithParamInterface<FactoryBit> {};

TEST_P(SetupUtilityFactoryBitTest, FactoryValueIsReadWithoutAFile)
{
    bool value = !GetParam().on;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(GetParam().number, &value));
    EXPECT_EQ(value, GetParam().on);
    bool byReference = !GetParam().on;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(GetParam().number, byReference));
    EXPECT_EQ(byReference, GetParam().on);
    EXPECT_FALSE(QFile::exists(featureFile()));
}

INSTANTIATE_TEST_SUITE_P(Bits, SetupUtilityFactoryBitTest,
                         ::testing::Values(FactoryBit{49, true}, FactoryBit{112, false}, FactoryBit{178, false},
                                           FactoryBit{230, true}, FactoryBit{303, false}, FactoryBit{421, true},
                                           FactoryBit{467, false}, FactoryBit{506, false}),
                         [](const auto& info) { return "Bit" + std::to_string(info.param.number); });

TEST_F(SetupUtilityTest, FactoryTableHoldsEveryBitTheMessagingSuiteAsksFor)
{
    const QList<int> numbers{49,  50,  51,  52,  112, 147, 148, 149, 150, 151, 178, 205, 210,
                             211, 212, 213, 214, 215, 216, 217, 218, 219, 220, 222, 223, 224,
                             225, 226, 227, 228, 230, 231, 232, 233, 234, 235, 236, 237, 238,
                             239, 240, 269, 303, 323, 326, 391, 395, 399, 421, 466, 467, 506};
    EXPECT_EQ(ZorHost::flexBits().keys(), numbers);
    EXPECT_EQ(ZorHost::features(),
              (QMap<int, bool>{{2007, false}, {2040, true}, {2168, true}, {2189, false}}));
}

TEST_F(SetupUtilityTest, BitOutsideTheTableCannotBeReadAndLeavesTheOutputAlone)
{
    bool value = true;
    EXPECT_FALSE(SETUP_Utility::getFlexBit(1, &value));
    EXPECT_TRUE(value);
    value = false;
    EXPECT_FALSE(SETUP_Utility::getFlexBit(-5, &value));
    EXPECT_FALSE(value);
    EXPECT_FALSE(SETUP_Utility::getFlexBit(303, nullptr));
}

TEST_F(SetupUtilityTest, SetBitIsReadAndWrittenWithTheWholeTable)
{
    ASSERT_TRUE(ZorHost::setFlexBit(303, true));
    bool value = false;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(303, &value));
    EXPECT_TRUE(value);
    EXPECT_TRUE(SETUP_Utility::getFlexBit(230, &value));
    EXPECT_TRUE(value);
    ASSERT_TRUE(QFile::exists(featureFile()));
    QFile f(featureFile());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray text = f.readAll();
    EXPECT_TRUE(text.startsWith("[FLEX_BITS]\n49=true\n50=true\n"));
    EXPECT_TRUE(text.contains("\n303=true\n"));
    EXPECT_TRUE(text.endsWith("[FEATURES]\n2007=false\n2040=true\n2168=true\n2189=false\n"));
}

TEST_F(SetupUtilityTest, NewBitCanBeAddedAndUnsetBitCannotBeRead)
{
    ASSERT_TRUE(ZorHost::setFlexBit(999, true));
    bool value = false;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(999, &value));
    EXPECT_TRUE(value);
    ASSERT_TRUE(ZorHost::unsetFlexBit(230));
    value = false;
    EXPECT_FALSE(SETUP_Utility::getFlexBit(230, &value));
    EXPECT_FALSE(value);
    EXPECT_FALSE(ZorHost::flexBits().contains(230));
    ASSERT_TRUE(ZorHost::setFlexBit(230, false));
    value = true;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(230, &value));
    EXPECT_FALSE(value);
}

TEST_F(SetupUtilityTest, FeaturesAnswerTheirTableAndUnknownIdsAreUnavailable)
{
    EXPECT_TRUE(SETUP_Utility::isFeatureAvailable(2040));
    EXPECT_TRUE(SETUP_Utility::isFeatureAvailable(2168));
    EXPECT_FALSE(SETUP_Utility::isFeatureAvailable(2007));
    EXPECT_FALSE(SETUP_Utility::isFeatureAvailable(2189));
    EXPECT_FALSE(SETUP_Utility::isFeatureAvailable(4711));
    ASSERT_TRUE(ZorHost::setFeatureAvailable(2007, true));
    ASSERT_TRUE(ZorHost::setFeatureAvailable(2040, false));
    ASSERT_TRUE(ZorHost::setFeatureAvailable(4711, true));
    EXPECT_TRUE(SETUP_Utility::isFeatureAvailable(2007));
    EXPECT_FALSE(SETUP_Utility::isFeatureAvailable(2040));
    EXPECT_TRUE(SETUP_Utility::isFeatureAvailable(4711));
}

TEST_F(SetupUtilityTest, ResetBringsBackTheFactoryTable)
{
    ASSERT_TRUE(ZorHost::setFlexBit(303, true));
    ASSERT_TRUE(ZorHost::setFeatureAvailable(2040, false));
    ZorHost::resetAll();
    bool value = true;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(303, &value));
    EXPECT_FALSE(value);
    EXPECT_TRUE(SETUP_Utility::isFeatureAvailable(2040));
}

TEST_F(SetupUtilityTest, HandEditedFileIsReadAndItsDamagedLinesIgnored)
{
    QDir().mkpath(QFileInfo(featureFile()).absolutePath());
    QFile f(featureFile());
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("[FLEX_BITS]\n303=1\n230=maybe\nnonsense\n[FEATURES]\n2040=0\n");
    f.close();
    ::testing::internal::CaptureStderr();
    bool value = false;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(303, &value));
    EXPECT_TRUE(value);
    value = true;
    EXPECT_FALSE(SETUP_Utility::getFlexBit(230, &value));
    EXPECT_TRUE(value);
    EXPECT_FALSE(SETUP_Utility::getFlexBit(49, &value));
    EXPECT_FALSE(SETUP_Utility::isFeatureAvailable(2040));
    EXPECT_FALSE(SETUP_Utility::isFeatureAvailable(2168));
    EXPECT_EQ(QString::fromStdString(::testing::internal::GetCapturedStderr()),
              QStringLiteral("SETUP_SET_Manager: %1 line 4 skipped: no \"=\"\n").arg(featureFile()));
}

TEST_F(SetupUtilityTest, InjectedFaultsMakeTheBitUnreadableAndAnswerTheFeature)
{
    ZorHost::injectFault(QStringLiteral("SETUP_Utility::getFlexBit"), 1);
    bool value = true;
    EXPECT_FALSE(SETUP_Utility::getFlexBit(230, &value));
    EXPECT_TRUE(value);
    value = false;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(230, &value));
    EXPECT_TRUE(value);

    ZorHost::injectFault(QStringLiteral("SETUP_Utility::isFeatureAvailable"), 0);
    EXPECT_FALSE(SETUP_Utility::isFeatureAvailable(2040));
    ZorHost::injectFault(QStringLiteral("SETUP_Utility::isFeatureAvailable"), 1);
    EXPECT_TRUE(SETUP_Utility::isFeatureAvailable(2007));
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("SETUP_Utility::getFlexBit")), 2);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("SETUP_Utility::isFeatureAvailable")), 2);
}

TEST_F(SetupUtilityTest, ControlSetterReportsAFileItCannotWrite)
{
    QDir().mkpath(featureFile());
    errno = 0;
    EXPECT_FALSE(ZorHost::setFlexBit(303, true));
    EXPECT_NE(errno, 0);
}

} // namespace
