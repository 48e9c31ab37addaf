#include "AdapterTest.h"
#include "platform/PlatformFactory.h"
#include "platform/macos/MacServices.h"

namespace brivandel {

namespace {

class RecordedLog final : public DiagnosticLog {
public:
    void write(const QString& message) override { messages += message; }
    QStringList messages;
};

class DefaultsTest : public AdapterTest {
protected:
    RecordedLog log;
    std::unique_ptr<DefaultsStore> store = makeMacDefaultsStore(log);
};

const QString key = QStringLiteral("key");

TEST_F(DefaultsTest, KeyThatIsAbsent_HasNoObject) {
    EXPECT_FALSE(store->object(key).isValid());
}

TEST_F(DefaultsTest, EveryType_IsStoredAsItselfAndComesBack) {
    const std::vector<std::pair<QVariant, QString>> values = {
        {true, QStringLiteral("Boolean")},
        {false, QStringLiteral("Boolean")},
        {qlonglong{1}, QStringLiteral("integer")},
        {qlonglong{-9'000'000'000}, QStringLiteral("integer")},
        {2.5, QStringLiteral("real")},
        {QStringLiteral("hey – Café 😀"), QStringLiteral("string")},
        {QString(), QStringLiteral("string")},
        {QByteArray("{\"a\":\"\\u0000\"}\0b", 17), QStringLiteral("data")},
        {QByteArray(), QStringLiteral("data")},
    };
    for (const auto& [value, kind] : values) {
        store->set(key, value);
        EXPECT_EQ(standin::storedKind(key), kind);
        EXPECT_EQ(store->object(key).typeId(), value.typeId()) << kind.toStdString();
        EXPECT_EQ(store->object(key), value) << kind.toStdString();
    }
    EXPECT_TRUE(log.messages.isEmpty());
}

TEST_F(DefaultsTest, ObjectOfAnotherProgram_IsForeign) {
    standin::storeForeign(key);
    EXPECT_EQ(store->object(key).typeId(), qMetaTypeId<ForeignObject>());
}

TEST_F(DefaultsTest, Writing_IsWaitedFor) {
    store->set(key, true);
    store->remove(key);
    EXPECT_EQ(calls(), QStringList({QStringLiteral("set key"), QStringLiteral("synchronize"),
                                    QStringLiteral("remove key"), QStringLiteral("synchronize")}));
    EXPECT_FALSE(store->object(key).isValid());
}

TEST_F(DefaultsTest, WhatCannotBeStored_IsSaidInTheLog) {
    store->set(key, QStringList(QStringLiteral("a")));
    EXPECT_EQ(log.messages,
              QStringList(QStringLiteral("Setting \"key\" is of a type that cannot be stored: QStringList")));
    EXPECT_EQ(standin::storedKind(key), QString());
    world().canStore = false;
    store->set(key, true);
    EXPECT_EQ(log.messages.last(), QStringLiteral("The settings could not be written"));
}

TEST_F(DefaultsTest, Objects_AreThoseOfTheProgramsOwnDomain) {
    EXPECT_TRUE(store->objects().isEmpty());
    store->set(QStringLiteral("a"), true);
    store->set(QStringLiteral("b"), qlonglong{7});
    const QVariantMap expected{{QStringLiteral("a"), true}, {QStringLiteral("b"), qlonglong{7}}};
    EXPECT_EQ(store->objects(), expected);
    world().bundleIdentifier = QString();
    EXPECT_EQ(store->objects(), expected) << "under the process's name";
}

TEST_F(DefaultsTest, UsersFile_IsReadThroughTheSystem) {
    store->set(QStringLiteral("a"), true);
    const QString path = userDefaultsPath();
    EXPECT_EQ(path, QStringLiteral("/Users/player/Library/Preferences/org.brivandel.Brivandel.plist"));
    EXPECT_EQ(std::get<QVariantMap>(readDefaultsFile(path)), QVariantMap({{QStringLiteral("a"), true}}));
}

TEST_F(DefaultsTest, OtherFile_IsReadAsAPropertyList) {
    const QString path = QStringLiteral("/tmp/some.plist");
    world().propertyList = "dictionary";
    EXPECT_EQ(std::get<QVariantMap>(readDefaultsFile(path)),
              QVariantMap({{QStringLiteral("wakeWord"), QStringLiteral("ok computer")},
                           {QStringLiteral("useWakeWord"), false}}));
    world().propertyList = "array";
    EXPECT_EQ(std::get<QString>(readDefaultsFile(path)),
              QStringLiteral("it is a property list, but no dictionary"));
    world().propertyList = "broken";
    EXPECT_EQ(std::get<QString>(readDefaultsFile(path)), QStringLiteral("it is no property list"));
    EXPECT_EQ(std::get<QString>(readDefaultsFile(QStringLiteral("/forbidden"))),
              QStringLiteral("it may not be read"));
    EXPECT_TRUE(std::get<QVariantMap>(readDefaultsFile(QStringLiteral("/missing"))).isEmpty());
}

} // namespace

} // namespace brivandel
