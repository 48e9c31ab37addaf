#include "platform/linux/defaults/PropertyList.h"

#include "platform/DefaultsStore.h"

#include <gtest/gtest.h>

#include <limits>

namespace brivandel {
namespace {

PropertyList parsed(const QByteArray& bytes) {
    auto result = PropertyList::parse(bytes);
    EXPECT_TRUE(std::holds_alternative<PropertyList>(result));
    return std::get<PropertyList>(std::move(result));
}

QString reasonOf(const QByteArray& bytes) {
    auto result = PropertyList::parse(bytes);
    const auto* error = std::get_if<PropertyListError>(&result);
    return error != nullptr ? error->reason : QString();
}

const QByteArray xmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">";

TEST(PropertyList, Objects_StayWhatTheyAre) {
    const QVariantMap objects = {
        {QStringLiteral("true"), true},
        {QStringLiteral("false"), false},
        {QStringLiteral("zero"), qlonglong{0}},
        {QStringLiteral("one"), qlonglong{1}},
        {QStringLiteral("negative"), qlonglong{-1}},
        {QStringLiteral("least"), std::numeric_limits<qlonglong>::min()},
        {QStringLiteral("greatest"), std::numeric_limits<qlonglong>::max()},
        {QStringLiteral("text"), QStringLiteral("hey logic")},
        {QStringLiteral("empty text"), QString()},
        {QStringLiteral("odd text"), QStringLiteral("ünï \U0001F3B8 <&> \u0001 \r\n é")},
        {QStringLiteral("data"), QByteArray("\0\xff[]", 4)},
        {QStringLiteral("Schlüssel"), QStringLiteral("value")},
    };
    PropertyList list;
    for (auto entry = objects.cbegin(); entry != objects.cend(); ++entry) {
        list.set(entry.key(), entry.value());
    }
    const PropertyList copy = parsed(list.toBinary());
    for (auto entry = objects.cbegin(); entry != objects.cend(); ++entry) {
        const QVariant read = copy.object(entry.key());
        EXPECT_EQ(read.typeId(), entry.value().typeId()) << entry.key().toStdString();
        EXPECT_EQ(read, entry.value()) << entry.key().toStdString();
    }
    EXPECT_EQ(copy.objects(), objects);
}

TEST(PropertyList, RemovedKey_IsAbsent) {
    PropertyList list;
    list.set(QStringLiteral("a"), true);
    list.remove(QStringLiteral("a"));
    list.remove(QStringLiteral("never there"));
    EXPECT_FALSE(parsed(list.toBinary()).object(QStringLiteral("a")).isValid());
}

TEST(PropertyList, Xml_IsReadToo) {
    const PropertyList list =
        parsed(xmlHead + "<dict><key>wakeWord</key><string>hi</string><key>n</key><integer>5</integer>"
                         "<key>b</key><false/><key>d</key><data>W10=</data></dict></plist>");
    EXPECT_EQ(list.object(QStringLiteral("wakeWord")), QVariant(QStringLiteral("hi")));
    EXPECT_EQ(list.object(QStringLiteral("n")), QVariant(qlonglong{5}));
    EXPECT_EQ(list.object(QStringLiteral("b")), QVariant(false));
    EXPECT_EQ(list.object(QStringLiteral("d")), QVariant(QByteArray("[]")));
}

TEST(PropertyList, ObjectsOfOtherTypes_AreThereAsForeignAndNotLost) {
    PropertyList list = parsed(xmlHead + "<dict><key>list</key><array><string>inside</string></array>"
                                         "<key>day</key><date>2026-11-15T23:22:41Z</date>"
                                         "<key>map</key><dict/></dict></plist>");
    const QVariant foreign = QVariant::fromValue(ForeignObject());
    for (const QString& key : {QStringLiteral("list"), QStringLiteral("day"), QStringLiteral("map")}) {
        EXPECT_EQ(list.object(key), foreign) << key.toStdString();
        EXPECT_EQ(list.objects().value(key), foreign) << key.toStdString();
    }
    list.set(QStringLiteral("other"), true);
    const PropertyList copy = parsed(list.toBinary());
    EXPECT_EQ(copy.objects().size(), 4);
    EXPECT_EQ(copy.object(QStringLiteral("list")), foreign);
    EXPECT_TRUE(list.toBinary().contains("inside"));
}

// Such a file can be read once and then, written again, never more.
TEST(PropertyList, KeysThatAreNoText_AreDamage) {
    PropertyList list;
    list.set(QStringLiteral("useWakeWord"), true);
    list.set(QStringLiteral("wakeWord"), QStringLiteral("hey logic"));
    const QByteArray whole = list.toBinary();
    QByteArray damaged = whole;
    damaged.replace("useWakeWord", "\xF5seWakeWord");
    ASSERT_NE(damaged, whole);
    EXPECT_EQ(reasonOf(whole), QString());
    EXPECT_EQ(reasonOf(damaged), QStringLiteral("it holds text that is none"));
}

TEST(PropertyList, AKeyWithAZeroInIt_IsDamage) {
    PropertyList list;
    const QString key = QStringLiteral("schlüssel"); // in UTF-16, where each character has two bytes
    list.set(key, true);
    QByteArray damaged = list.toBinary();
    damaged.replace(QByteArray("\0h\0l", 4), QByteArray("\0\0\0l", 4));
    ASSERT_NE(damaged, list.toBinary());
    EXPECT_EQ(reasonOf(damaged), QStringLiteral("it holds text that is none"));
}

TEST(PropertyList, WhatCannotBeRead_SaysWhy) {
    EXPECT_EQ(reasonOf(""), QStringLiteral("the file is empty"));
    EXPECT_EQ(reasonOf("hello"), QStringLiteral("it is no property list, or a damaged one"));
    EXPECT_EQ(reasonOf("bplist00"), QStringLiteral("it is no property list, or a damaged one"));
    EXPECT_EQ(reasonOf(xmlHead + "<array/></plist>"), QStringLiteral("it holds no dictionary"));
}

} // namespace
} // namespace brivandel
