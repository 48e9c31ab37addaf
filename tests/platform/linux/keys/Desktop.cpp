#include "platform/linux/keys/Desktop.h"

#include "platform/linux/keys/X11BorrowedKeys.h"
#include "platform/linux/keys/X11KeySender.h"
#include "platform/linux/keys/XkbProtocol.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcessEnvironment>

#include <algorithm>
#include <array>

namespace brivandel::testing {

namespace {

/// QProcess wants an application, though not its loop.
class Application : public ::testing::Environment {
public:
    void SetUp() override {
        application_ = std::make_unique<QCoreApplication>(argumentCount_, arguments_.data());
    }
    void TearDown() override { application_.reset(); }

private:
    std::array<char, 6> name_{'t', 'e', 's', 't', 's', '\0'};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    int argumentCount_ = 1;
    std::unique_ptr<QCoreApplication> application_;
};

const ::testing::Environment* const application = ::testing::AddGlobalTestEnvironment(new Application);

constexpr int milliseconds = static_cast<int>(std::chrono::milliseconds(forEver).count());

} // namespace

KeySession::Deadline soon() {
    return std::chrono::steady_clock::now() + forEver;
}

KeyWindowProcess::KeyWindowProcess(const QString& program, const QStringList& arguments) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // The window is not what is tested: in Qt's own D-Bus connection there, the sanitizers see races and
    // leaks.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TSAN_OPTIONS"), QStringLiteral("report_bugs=0:die_after_fork=0"));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    process_.setProcessEnvironment(environment);
    process_.start(program, arguments);
    window_ = awaitWindow(QStringLiteral("ready"));
}

KeyWindowProcess::~KeyWindowProcess() {
    close();
}

void KeyWindowProcess::close() {
    if (process_.state() != QProcess::NotRunning) {
        process_.closeWriteChannel();
        EXPECT_TRUE(process_.waitForFinished(milliseconds));
        EXPECT_EQ(process_.exitCode(), 0);
    }
}

xcb_window_t KeyWindowProcess::openDialog() {
    process_.write("dialog\n");
    return awaitWindow(QStringLiteral("dialog"));
}

QJsonObject KeyWindowProcess::readEvent() {
    while (!process_.canReadLine()) {
        if (!process_.waitForReadyRead(milliseconds)) {
            return {};
        }
    }
    return QJsonDocument::fromJson(process_.readLine()).object();
}

xcb_window_t KeyWindowProcess::awaitWindow(const QString& name) {
    const QJsonObject event = readEvent();
    EXPECT_EQ(event.value(QStringLiteral("event")).toString().toStdString(), name.toStdString());
    return static_cast<xcb_window_t>(event.value(QStringLiteral("window")).toInteger());
}

std::vector<SeenKey> KeyWindowProcess::takeAllKeys(x11::Connection& connection) {
    EXPECT_TRUE(x11::waitUntilHandled(connection, window_, soon()));
    process_.write("mark\n");
    std::vector<SeenKey> keys;
    for (;;) {
        const QJsonObject event = readEvent();
        if (event.value(QStringLiteral("event")) != QStringLiteral("key")) {
            EXPECT_EQ(event.value(QStringLiteral("event")).toString().toStdString(), "mark");
            return keys;
        }
        SeenKey key{.keyCode = event.value(QStringLiteral("keyCode")).toInt(-1),
                    .symbol = event.value(QStringLiteral("keysym")).toString(),
                    .text = event.value(QStringLiteral("text")).toString(),
                    .modifiers = {}};
        for (const QJsonValue modifier : event.value(QStringLiteral("modifiers")).toArray()) {
            key.modifiers += modifier.toString();
        }
        key.modifiers.sort();
        keys.push_back(key);
    }
}

std::vector<SeenKey> KeyWindowProcess::takeKeys(x11::Connection& connection) {
    auto keys = takeAllKeys(connection);
    std::erase_if(keys, [](const SeenKey& key) {
        return (key.keyCode >= 54 && key.keyCode <= 62) || key.symbol.startsWith(QStringLiteral("ISO_Level"));
    });
    return keys;
}

QString textOf(const std::vector<SeenKey>& keys) {
    QString text;
    for (const SeenKey& key : keys) {
        text += key.text;
    }
    return text;
}

void DesktopTest::SetUp() {
    auto opened = x11::Connection::open({}, soon());
    ASSERT_TRUE(std::holds_alternative<std::unique_ptr<x11::Connection>>(opened))
        << "run through script/with-desktop";
    connection_ = std::get<std::unique_ptr<x11::Connection>>(std::move(opened));
    windows_ = std::make_unique<x11::Windows>(*connection_);
    setLayout(QStringLiteral("us"));
}

void DesktopTest::TearDown() {
    lockModifiers(0);
    setGroup(0);
}

std::unique_ptr<LinuxScriptHost> DesktopTest::makeHost(const TargetName& target) {
    return std::make_unique<LinuxScriptHost>(std::make_unique<X11KeySender>(), std::make_unique<FixedStandIn>(StandIn{target, {}, {}}),
                                             std::make_unique<HurriedTime>());
}

QString DesktopTest::run(const QString& source, const TargetName& target) {
    const auto error = makeHost(target)->run(source);
    return error ? error->value(QString::fromUtf16(ScriptErrorKey::message)).toString() : QString();
}

void DesktopTest::setLayout(const QString& layout, const QStringList& more) {
    QProcess setxkbmap;
    setxkbmap.start(QStringLiteral("setxkbmap"),
                    QStringList{QStringLiteral("-option"), QString(), QStringLiteral("-layout"), layout} +
                        more);
    ASSERT_TRUE(setxkbmap.waitForFinished(milliseconds));
    ASSERT_EQ(setxkbmap.exitCode(), 0);
}

QString DesktopTest::programNamed(const QString& name) {
    QString path = folder_.filePath(name);
    if (!QFile::exists(path)) {
        EXPECT_TRUE(QFile::copy(QStringLiteral(KEY_WINDOW_PROGRAM), path));
    }
    return path;
}

bool DesktopTest::waitUntil(xcb_window_t window, const std::function<bool()>& holds) {
    const std::uint32_t events =
        XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE;
    const std::uint32_t rootEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(x().xcb(), window, XCB_CW_EVENT_MASK, &events);
    xcb_change_window_attributes(x().xcb(), x().root(), XCB_CW_EVENT_MASK, &rootEvents);
    const auto deadline = soon();
    while (!holds()) {
        if (x().waitForEvent(deadline) == nullptr) {
            return false;
        }
    }
    return true;
}

void DesktopTest::minimise(xcb_window_t window) {
    constexpr std::uint32_t iconicState = 3;
    const auto name = std::string_view("WM_CHANGE_STATE");
    const auto atom = x11::reply<xcb_intern_atom_reply>(
        x().xcb(), xcb_intern_atom(x().xcb(), 0, static_cast<std::uint16_t>(name.size()), name.data()));
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom->atom;
    message.data.data32[0] = iconicState;
    xcb_send_event(x().xcb(), 0, x().root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    ASSERT_TRUE(waitUntil(window, [&] {
        const auto state = x().property32(window, x().atom(x11::Atom::WmState));
        return !state.empty() && state.front() == iconicState && windows().focusedWindow() != window;
    }));
}

bool DesktopTest::isKeyDown(xcb_keycode_t key) const {
    const auto keys =
        x11::reply<xcb_query_keymap_reply>(connection_->xcb(), xcb_query_keymap(connection_->xcb()));
    return keys && ((keys->keys[key / 8] >> (key % 8)) & 1) != 0;
}

std::uint8_t DesktopTest::lockedModifiers() const {
    auto* const xcb = connection_->xcb();
    const auto state =
        x11::reply<xcb_xkb_get_state_reply>(xcb, xcb_xkb_get_state(xcb, XCB_XKB_ID_USE_CORE_KBD));
    return state ? state->lockedMods : std::uint8_t{0};
}

void DesktopTest::lockModifiers(std::uint8_t mask) {
    xcb_xkb_latch_lock_state(x().xcb(), XCB_XKB_ID_USE_CORE_KBD, 0xff, mask, 0, 0, 0xff, 0, 0);
    x().sync();
}

void DesktopTest::setGroup(std::uint8_t group) {
    xcb_xkb_latch_lock_state(x().xcb(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    x().sync();
}

std::vector<xcb_keysym_t> DesktopTest::keyboardMapping() const {
    auto* const xcb = connection_->xcb();
    const auto* const setup = xcb_get_setup(xcb);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto mapping = x11::reply<xcb_get_keyboard_mapping_reply>(
        xcb, xcb_get_keyboard_mapping(xcb, setup->min_keycode, count));
    const auto* const symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    return {symbols, symbols + xcb_get_keyboard_mapping_keysyms_length(mapping.get())};
}

OpenTarget openTarget(const TargetName& name) {
    auto opened = X11KeySender().openSession(soon());
    auto session = std::get<std::unique_ptr<KeySession>>(std::move(opened));
    const auto target = std::get<KeyTarget>(session->find(name, soon()));
    return {.session = std::move(session), .target = target};
}

} // namespace brivandel::testing
