// Any bytes as a settings file: what is read is written and read again the same.

#include "Require.h"
#include "platform/linux/defaults/PropertyList.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brivandel;
    const auto parsed =
        PropertyList::parse(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    const auto* list = std::get_if<PropertyList>(&parsed);
    if (list == nullptr) {
        require(!std::get<PropertyListError>(parsed).reason.isEmpty(), "a refusal says why");
        return 0;
    }
    const QByteArray written = list->toBinary();
    auto again = PropertyList::parse(written);
    require(std::holds_alternative<PropertyList>(again), "what was written can be read");
    auto& copy = std::get<PropertyList>(again);
    const QVariantMap kept = copy.objects();
    for (const QString& key : list->objects().keys()) {
        // A key that is no UTF-8 is none that the program has ever written.
        require(kept.contains(key) || key.contains(QChar::ReplacementCharacter), "no setting is lost");
    }

    const QString key = QStringLiteral("wakeWord");
    const QVariant value = QStringLiteral("hey logic");
    copy.set(key, value);
    require(copy.object(key) == value, "what is set stands");
    copy.remove(key);
    require(!copy.object(key).isValid(), "what is removed is gone");
    return 0;
}
