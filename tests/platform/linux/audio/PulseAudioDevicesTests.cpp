#include "platform/linux/audio/PulseAudioDevices.h"
#include "platform/linux/audio/ServerControl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brivandel {

namespace {

QStringList uids(AudioDevices& devices) {
    QStringList uids;
    for (const AudioDevice& device : devices.inputDevices()) {
        uids.append(device.uid);
    }
    return uids;
}

} // namespace

class PulseAudioDevicesTest : public testing::Test {
protected:
    PulseAudioContext context_;
    PulseAudioDevices devices_{context_};
};

TEST_F(PulseAudioDevicesTest, List_HasMicrophonesAndNoMonitors) {
    EXPECT_THAT(uids(devices_), testing::UnorderedElementsAre(QStringLiteral("vmic"), QStringLiteral("vmic2"),
                                                              QStringLiteral("vmic6")));
}

TEST_F(PulseAudioDevicesTest, Name_IsTheDescription) {
    const auto devices = devices_.inputDevices();
    const auto found = std::ranges::find(devices, QStringLiteral("vmic2"), &AudioDevice::uid);
    ASSERT_NE(found, devices.end());
    EXPECT_EQ(found->name, QStringLiteral("Vmic2"));
}

TEST_F(PulseAudioDevicesTest, DeviceID_LeadsBackToItsUid) {
    const auto first = devices_.deviceIDForUID(QStringLiteral("vmic"));
    const auto sixth = devices_.deviceIDForUID(QStringLiteral("vmic6"));
    ASSERT_TRUE(first && sixth);
    EXPECT_NE(*first, 0U);
    EXPECT_NE(*first, *sixth);
    const PulseAudioLoop::Lock lock(context_.loop());
    EXPECT_EQ(context_.uidForDeviceID(*first), QStringLiteral("vmic"));
    EXPECT_EQ(context_.uidForDeviceID(*sixth), QStringLiteral("vmic6"));
}

TEST_F(PulseAudioDevicesTest, UnknownUid_IsNoDevice) {
    EXPECT_EQ(devices_.deviceIDForUID(QStringLiteral("no-such-microphone")), std::nullopt);
    EXPECT_EQ(devices_.deviceIDForUID(QStringLiteral("feed.monitor")), std::nullopt);
}

TEST_F(PulseAudioDevicesTest, PluggedInAndOut_ComesAndGoesAndKeepsItsID) {
    const QString uid = QStringLiteral("usb");
    const auto isThere = [&](const AudioServer& server) { return server.sourceWithUid(uid) != nullptr; };
    ContextWatch watch(context_);

    QString module = plugInMicrophone(uid, QStringLiteral("feed2.monitor"));
    ASSERT_TRUE(watch.waitUntil(isThere));
    const auto deviceID = devices_.deviceIDForUID(uid);
    EXPECT_TRUE(deviceID);

    unplug(module);
    ASSERT_TRUE(watch.waitUntil(std::not_fn(isThere)));
    EXPECT_FALSE(uids(devices_).contains(uid));
    EXPECT_EQ(devices_.deviceIDForUID(uid), std::nullopt);

    module = plugInMicrophone(uid, QStringLiteral("feed2.monitor"));
    ASSERT_TRUE(watch.waitUntil(isThere));
    EXPECT_EQ(devices_.deviceIDForUID(uid), deviceID);
    unplug(module);
}

} // namespace brivandel
