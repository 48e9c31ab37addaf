#include "platform/linux/defaults/PropertyList.h"

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

TEST(PropertyList, ObjectOfAnotherType_IsNotReadAndNotLost) {
    PropertyList list =
        parsed(xmlHead + "<dict><key>list</key><array><string>x</string></array></dict></plist>");
    EXPECT_FALSE(list.object(QStringLiteral("list")).isValid());
    list.set(QStringLiteral("other"), true);
    EXPECT_TRUE(list.toBinary().contains("list"));
}

TEST(PropertyList, WhatCannotBeRead_SaysWhy) {
    EXPECT_EQ(reasonOf(""), QStringLiteral("the file is empty"));
    EXPECT_EQ(reasonOf("hello"), QStringLiteral("it is no property list, or a damaged one"));
    EXPECT_EQ(reasonOf("bplist00"), QStringLiteral("it is no property list, or a damaged one"));
    EXPECT_EQ(reasonOf(xmlHead + "<array/></plist>"), QStringLiteral("it holds no dictionary"));
}

} // namespace
} // namespace brivandel
