#include "platform/linux/recognition/ModelIntegrity.h"

#include <QByteArrayView>
#include <QFile>
#include <QtEndian>

#include <array>
#include <bit>
#include <cstdint>

namespace brivandel {

namespace {

// The layouts are those of the Sphinx tools, in the byte order of the machines that the model is packaged
// for.
constexpr qsizetype wordSize = 4;
constexpr std::uint32_t byteOrderMark = 0x11223344;

/// Reads a file's numbers and texts in order, and knows when it has ended too early.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : bytes_(bytes) {}

    [[nodiscard]] qint64 number() {
        const QByteArrayView word = take(wordSize);
        return word.isEmpty() ? 0 : qFromLittleEndian<std::int32_t>(word.data());
    }
    [[nodiscard]] QByteArrayView take(qint64 count) {
        if (count < 0 || count > bytes_.size() - at_) {
            endedEarly_ = true;
            return {};
        }
        const QByteArrayView taken = bytes_.sliced(at_, count);
        at_ += count;
        return taken;
    }
    /// A text that a zero ends.
    void skipText() {
        const qsizetype end = bytes_.indexOf('\0', at_);
        endedEarly_ = endedEarly_ || end < 0;
        at_ = end < 0 ? at_ : end + 1;
    }
    void skipToMultipleOf(qsizetype size, qsizetype since) {
        static_cast<void>(take((size - (at_ - since) % size) % size));
    }

    [[nodiscard]] qsizetype place() const { return at_; }
    [[nodiscard]] qint64 left() const { return bytes_.size() - at_; }
    [[nodiscard]] bool hasEndedEarly() const { return endedEarly_; }

private:
    QByteArrayView bytes_;
    qsizetype at_ = 0;
    bool endedEarly_ = false;
};

/// The phones and their states: counts, and tables as long as the counts say.
bool isWholeDefinition(QByteArrayView bytes) {
    if (!bytes.startsWith("BMDF")) {
        // The older form is text, of which the engine itself tells what is wrong.
        return !bytes.isEmpty();
    }
    Reader reader(bytes);
    static_cast<void>(reader.take(2 * wordSize));    // those letters and the version
    static_cast<void>(reader.take(reader.number())); // a description for people
    const qint64 basePhones = reader.number();
    const qint64 phones = reader.number();
    const qint64 statesOfEach = reader.number();
    static_cast<void>(reader.take(3 * wordSize));
    const qint64 sequences = reader.number();
    static_cast<void>(reader.take(wordSize));
    const qint64 treeNodes = reader.number();
    static_cast<void>(reader.take(wordSize));
    const qsizetype names = reader.place();
    for (qint64 phone = 0; phone < basePhones && !reader.hasEndedEarly(); ++phone) {
        reader.skipText();
    }
    reader.skipToMultipleOf(wordSize, names);
    static_cast<void>(reader.take(8 * treeNodes));
    static_cast<void>(reader.take(12 * phones));
    const qint64 entries = reader.number();
    return !reader.hasEndedEarly() && entries >= sequences * statesOfEach && reader.left() >= 2 * entries;
}

/// A header in text, numbers, and the checksum of the numbers.
bool isWholeParameters(QByteArrayView bytes) {
    constexpr QByteArrayView endOfHeader("endhdr\n");
    const qsizetype header = bytes.indexOf(endOfHeader);
    if (!bytes.startsWith("s3\n") || header < 0) {
        return false;
    }
    const QByteArrayView words = bytes.sliced(header + endOfHeader.size());
    if (words.size() % wordSize != 0 || words.size() < 3 * wordSize ||
        qFromLittleEndian<std::uint32_t>(words.data()) != byteOrderMark) {
        return false;
    }
    if (!bytes.first(header).contains("chksum0 yes")) {
        return true;
    }
    std::uint32_t sum = 0;
    const qsizetype last = words.size() - wordSize;
    for (qsizetype at = wordSize; at < last; at += wordSize) {
        sum = std::rotl(sum, 20) + qFromLittleEndian<std::uint32_t>(words.data() + at);
    }
    return sum == qFromLittleEndian<std::uint32_t>(words.data() + last);
}

/// Texts that say how many features there are, and a table for each.
bool isWholeWeights(QByteArrayView bytes) {
    constexpr QByteArrayView featureCount("feature_count ");
    Reader reader(bytes);
    qint64 features = 1;
    for (qint64 length = reader.number(); length != 0 && !reader.hasEndedEarly(); length = reader.number()) {
        const QByteArrayView text = reader.take(length);
        if (text.startsWith(featureCount)) {
            features = text.sliced(featureCount.size()).toByteArray().replace('\0', QByteArray()).toInt();
        }
    }
    const qint64 rows = reader.number();
    const qint64 columns = reader.number();
    // Divided, since the product of three such numbers may be larger than any.
    return !reader.hasEndedEarly() && rows > 0 && columns > 0 && features > 0 &&
           reader.left() / features / rows >= columns;
}

bool isWholeText(QByteArrayView bytes) {
    return bytes.endsWith('\n');
}

struct ModelFile {
    QLatin1StringView name;
    bool (*isWhole)(QByteArrayView bytes) = nullptr;
};

constexpr std::array modelFiles = {ModelFile{QLatin1StringView("/mdef"), isWholeDefinition},
                                   ModelFile{QLatin1StringView("/means"), isWholeParameters},
                                   ModelFile{QLatin1StringView("/variances"), isWholeParameters},
                                   ModelFile{QLatin1StringView("/transition_matrices"), isWholeParameters},
                                   ModelFile{QLatin1StringView("/sendump"), isWholeWeights},
                                   ModelFile{QLatin1StringView("/feat.params"), isWholeText}};

bool isWhole(const QString& path, bool (*isWholeContent)(QByteArrayView)) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    // Mapped, since most of the largest files need not be read for it.
    const uchar* const content = file.map(0, file.size());
    return content != nullptr && isWholeContent({content, file.size()});
}

} // namespace

std::optional<QString> damagedFileOf(const QString& acousticModel) {
    for (const ModelFile& file : modelFiles) {
        const QString path = acousticModel + file.name;
        if (!isWhole(path, file.isWhole)) {
            return path;
        }
    }
    return std::nullopt;
}

} // namespace brivandel
