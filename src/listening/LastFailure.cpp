#include "listening/LastFailure.h"

#include "listening/VoiceController.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace brivandel {

namespace {

const QString textMember = QStringLiteral("text");
const QString whenMember = QStringLiteral("when");

// An input that is missing fails anew with every restart, every second or two.
constexpr std::chrono::seconds sameFailureIsNotStoredAgainFor{60};

} // namespace

bool isFailureStatus(const QString& status) {
    constexpr std::array<QStringView, 2> beginnings = {u"Error: ", u"Audio engine error: "};
    constexpr std::array<QStringView, 6> texts = {
        u"Unable to create recognition request", u"Speech recognition denied",
        u"Speech recognition restricted",        u"Speech recognition not determined",
        u"Unknown authorization status",         u"Microphone access denied",
    };
    return std::ranges::any_of(beginnings, [&status](QStringView text) { return status.startsWith(text); }) ||
           std::ranges::find(texts, QStringView(status)) != texts.end();
}

std::optional<FailureRecord> readFailureRecord(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    FailureRecord record{object.value(textMember).toString(),
                         QDateTime::fromString(object.value(whenMember).toString(), Qt::ISODate)};
    if (record.text.isEmpty() || !record.when.isValid()) {
        return std::nullopt;
    }
    return record;
}

LastFailure::LastFailure(const VoiceController& controller, QString path, WallClock now)
    : path_(std::move(path))
    , now_(std::move(now))
    , record_(readFailureRecord(path_))
    , stored_(record_) {
    connect(&controller, &VoiceController::statusMessageChanged, this,
            [this, &controller] { note(controller.statusMessage()); });
}

void LastFailure::note(const QString& status) {
    if (!isFailureStatus(status)) {
        return;
    }
    record_ = {status, QDateTime::fromSecsSinceEpoch(now_().toSecsSinceEpoch(), Qt::UTC)};
    // A clock that was set back must not keep the file as it is.
    const bool isStored =
        stored_ && stored_->text == record_->text &&
        std::abs(stored_->when.secsTo(record_->when)) < sameFailureIsNotStoredAgainFor.count();
    if (!isStored) {
        store();
        stored_ = record_;
    }
    Q_EMIT changed();
}

void LastFailure::store() const {
    QDir().mkpath(QFileInfo(path_).absolutePath());
    QSaveFile file(path_);
    if (!file.open(QIODevice::WriteOnly)) {
        return;
    }
    // The names of somebody's commands are nobody else's business.
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    const QJsonObject object = {{textMember, record_->text},
                                {whenMember, record_->when.toString(Qt::ISODate)}};
    file.write(QJsonDocument(object).toJson());
    file.commit();
}

} // namespace brivandel
