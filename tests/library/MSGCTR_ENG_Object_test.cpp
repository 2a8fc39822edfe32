#include "ForkedScenario.h"
#include "HostRootTest.h"

#include "MSGCTR_ENG_DumpContext.h"
#include "MSGCTR_ENG_Object.h"

#include <QCoreApplication>
#include <QTranslator>

#include <limits>

namespace {

class ObjectTest : public HostRootTest {
};

// Reaches the counter seam.
class CounterSetter : public MSGCTR_ENG_Object {
public:
    static void setCount(quint32 count) { setObjectIDCountForTesting(count); }
};

class DumpingObject : public MSGCTR_ENG_Object {
public:
    bool isValidByChk() const override { return false; }
    void dumpObj(MSGCTR_ENG_DumpContext& context) const override { context << MEDCStr(" id= ") << objectID(); }
};

// Answers every look-up of the "MSGCTR_ENG_Object" context, and only that context.
class ObjectContextTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char* disambiguation, int) const override
    {
        if (QByteArray(context) != "MSGCTR_ENG_Object")
            return QString();
        return QStringLiteral("<%1|%2>").arg(QString::fromLatin1(sourceText), QString::fromLatin1(disambiguation));
    }
};

TEST_F(ObjectTest, FirstObjectOfTheProcessGetsOneTheSecondTwo)
{
    runForkedScenario([] {
        MSGCTR_ENG_Object first;
        MSGCTR_ENG_Object second;
        EXPECT_EQ(first.objectID(), 1u);
        EXPECT_EQ(second.objectID(), 2u);
    });
}

TEST_F(ObjectTest, IdsKeepIncreasingAndAreKeptForLife)
{
    MSGCTR_ENG_Object a;
    const quint32 id = a.objectID();
    const quint32 next = MSGCTR_ENG_Object::createNewObjectID();
    MSGCTR_ENG_Object b;
    EXPECT_EQ(next, id + 1);
    EXPECT_EQ(b.objectID(), id + 2);
    EXPECT_EQ(a.objectID(), id);
}

TEST_F(ObjectTest, CounterAtMaximumWrapsToOneNotZero)
{
    runForkedScenario([] {
        CounterSetter::setCount(std::numeric_limits<quint32>::max());
        MSGCTR_ENG_Object wrapped;
        EXPECT_EQ(wrapped.objectID(), 1u);
        EXPECT_EQ(MSGCTR_ENG_Object::createNewObjectID(), 2u);
    });
}

TEST_F(ObjectTest, CounterOneBelowMaximumHandsOutMaximumThenOne)
{
    runForkedScenario([] {
        CounterSetter::setCount(std::numeric_limits<quint32>::max() - 1);
        EXPECT_EQ(MSGCTR_ENG_Object::createNewObjectID(), 4294967295u);
        EXPECT_EQ(MSGCTR_ENG_Object::createNewObjectID(), 1u);
    });
}

TEST_F(ObjectTest, StreamingAPlainObjectAddsNothing)
{
    MSGCTR_ENG_Object object;
    MSGCTR_ENG_DumpContext context;
    context << MEDCStr("before") << object << MEDCStr("after");
    EXPECT_EQ(context.data(), QStringLiteral("beforeafter"));
    MSGCTR_ENG_DumpContext empty;
    empty << object;
    EXPECT_EQ(empty.data(), QString());
}

TEST_F(ObjectTest, StreamingCallsTheOverriddenDump)
{
    runForkedScenario([] {
        CounterSetter::setCount(41);
        DumpingObject object;
        MSGCTR_ENG_DumpContext context;
        context << static_cast<const MSGCTR_ENG_Object&>(object);
        EXPECT_EQ(context.data(), QStringLiteral(" id= 42/0x0000002A(U32,4)"));
    });
}

TEST_F(ObjectTest, BaseSelfCheckAnswersTrueAndOverridesAreCalled)
{
    MSGCTR_ENG_Object plain;
    DumpingObject derived;
    const MSGCTR_ENG_Object& asBase = derived;
    EXPECT_TRUE(plain.isValidByChk());
    EXPECT_FALSE(asBase.isValidByChk());
}

TEST_F(ObjectTest, MetaObjectHasTheClassNameAndNothingOfItsOwn)
{
    MSGCTR_ENG_Object object;
    const QMetaObject* meta = object.metaObject();
    EXPECT_STREQ(meta->className(), "MSGCTR_ENG_Object");
    ASSERT_NE(meta->superClass(), nullptr);
    EXPECT_STREQ(meta->superClass()->className(), "QObject");
    EXPECT_EQ(meta->methodCount(), meta->methodOffset());
    EXPECT_EQ(meta->propertyCount(), meta->propertyOffset());
    EXPECT_TRUE(object.inherits("MSGCTR_ENG_Object"));
    EXPECT_EQ(object.parent(), nullptr);
    EXPECT_TRUE(object.objectName().isEmpty());
}

TEST_F(ObjectTest, TrTranslatesInTheObjectContext)
{
    int argc = 1;
    char name[] = "MSGCTR_ENG_Object_test";
    char* argv[] = {name, nullptr};
    QCoreApplication app(argc, argv);
    EXPECT_EQ(MSGCTR_ENG_Object::tr("Delete?"), QStringLiteral("Delete?"));

    ObjectContextTranslator translator;
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    EXPECT_EQ(MSGCTR_ENG_Object::tr("Delete?"), QStringLiteral("<Delete?|>"));
    EXPECT_EQ(MSGCTR_ENG_Object::tr("Delete?", "prompt"), QStringLiteral("<Delete?|prompt>"));
    QCoreApplication::removeTranslator(&translator);
}

} // namespace
