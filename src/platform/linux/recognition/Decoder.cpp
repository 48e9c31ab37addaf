#include "platform/linux/recognition/Decoder.h"

#include <QFile>

#include <pocketsphinx.h>
#include <sphinxbase/err.h>
#include <sphinxbase/fsg_model.h>
#include <sphinxbase/ngram_model.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace brivandel {

namespace {

/// A file in memory, for a library that reads from files only.
class MemoryFile {
public:
    explicit MemoryFile(const QByteArray& content) : descriptor_(memfd_create("brivandel", MFD_CLOEXEC)) {
        QFile file;
        complete_ = file.open(descriptor_, QIODevice::WriteOnly) && file.write(content) == content.size() &&
                    file.flush();
    }
    ~MemoryFile() {
        if (descriptor_ >= 0) {
            close(descriptor_);
        }
    }
    Q_DISABLE_COPY_MOVE(MemoryFile)

    [[nodiscard]] bool isComplete() const { return complete_; }
    [[nodiscard]] QByteArray path() const { return "/proc/self/fd/" + QByteArray::number(descriptor_); }

private:
    int descriptor_;
    bool complete_ = false;
};

struct FreeGrammar {
    void operator()(fsg_model_t* grammar) const { fsg_model_free(grammar); }
};
struct FreeLanguageModel {
    void operator()(ngram_model_t* model) const { ngram_model_free(model); }
};
struct FreeConfiguration {
    void operator()(cmd_ln_t* configuration) const { cmd_ln_free_r(configuration); }
};

/// All branches of a grammar are equally likely: which phrases a musician uses is not known.
constexpr int evenLogProbability = 0;

/// The mean of the training counts as so many frames of the opening. With 20, every decision of 392 was the
/// same, and a few more were left to the second look.
constexpr float weightOfTraining = 60;

cmn_t* cepstralMean(ps_decoder_t* decoder) {
    return ps_get_feat(decoder)->cmn_struct;
}

} // namespace

const QString& searchFor(Expecting expecting) {
    static const QString wakePhrase = QStringLiteral("wake phrase");
    static const QString command = QStringLiteral("command");
    return expecting == Expecting::WakePhrase ? wakePhrase : command;
}

void Decoder::Delete::operator()(ps_decoder_s* handle) const {
    ps_free(handle);
}

Decoder::Decoder(Handle handle) : handle_(std::move(handle)) {
    const cmn_t* mean = cepstralMean(handle_.get());
    initialMean_.assign(mean->cmn_mean, mean->cmn_mean + mean->veclen);
}

std::unique_ptr<Decoder> Decoder::load(const ModelFiles& files, Scoring scoring) {
    // Process-wide, but never anything else: the engine's chatter belongs on nobody's terminal.
    err_set_logfp(nullptr);
    const QByteArray acousticModel = QFile::encodeName(files.acousticModel);
    // No second and third pass of the engine's own: they answer only at the end of an utterance, and a small
    // vocabulary gains nothing by them. Silence is kept since the endpointer decides what silence is. Without
    // a warp of its own the decoder would have that of the front end that was made before it. A loop of
    // phones that knew their neighbours would be a hundred times as large.
    const std::unique_ptr<cmd_ln_t, FreeConfiguration> configuration(
        cmd_ln_init(nullptr, ps_args(), TRUE, "-hmm", acousticModel.constData(), "-remove_silence", "no",
                    "-lw", "6.5", "-warp_params", "1", "-fwdflat", "no", "-bestpath", "no", "-allphone_ci",
                    "yes", "-compallsen", scoring == Scoring::InFull ? "yes" : "no", nullptr));
    if (!configuration) {
        return nullptr;
    }
    const auto lock = FrontEnd::lockMaking();
    Handle handle(ps_init(configuration.get()));
    return handle ? std::unique_ptr<Decoder>(new Decoder(std::move(handle))) : nullptr;
}

std::unique_ptr<FrontEnd> Decoder::makeFrontEnd(double resonance) {
    return FrontEnd::make(ps_get_config(handle_.get()), resonance);
}

bool Decoder::setDictionary(const Pronunciations& pronunciations) {
    if (std::exchange(inUtterance_, false)) {
        ps_end_utt(handle_.get());
    }
    for (const QString& search : std::exchange(searches_, {})) {
        if (search == phoneLoop_) {
            // What it heard last is freed when it begins again, and not when it goes.
            begin(search);
            end();
        }
        ps_unset_search(handle_.get(), search.toUtf8().constData());
    }
    QByteArray text;
    for (auto it = pronunciations.begin(); it != pronunciations.end(); ++it) {
        int variant = 0;
        for (const QString& phones : it.value()) {
            text += it.key().toUtf8();
            if (++variant > 1) {
                text += '(' + QByteArray::number(variant) + ')';
            }
            text += ' ' + phones.toLatin1() + '\n';
        }
    }
    const MemoryFile file(text);
    return file.isComplete() && ps_load_dict(handle_.get(), file.path().constData(), nullptr, nullptr) == 0;
}

bool Decoder::addLanguageModel(const QString& search, const QByteArray& arpa) {
    const MemoryFile file(arpa);
    if (!file.isComplete()) {
        return false;
    }
    const std::unique_ptr<ngram_model_t, FreeLanguageModel> model(ngram_model_read(
        ps_get_config(handle_.get()), file.path().constData(), NGRAM_ARPA, ps_get_logmath(handle_.get())));
    if (!model || ps_set_lm(handle_.get(), search.toUtf8().constData(), model.get()) != 0) {
        return false;
    }
    searches_ << search;
    return true;
}

bool Decoder::addGrammar(const QString& search, const PhraseGraph& graph, Expecting expecting) {
    // One state where everything begins, one where everything ends, and one for each node where words go on.
    // The engine looks at every state for each 10 ms of sound, and most nodes are the last of their phrase.
    constexpr int start = 0;
    constexpr int end = 1;
    int stateCount = 2;
    std::vector<int> states;
    for (std::size_t i = 0; i < graph.nodes().size(); ++i) {
        const bool isLast = graph.nodes()[i].edges.empty() && !graph.isWakeNode(static_cast<int>(i));
        states.push_back(isLast ? end : stateCount++);
    }
    const auto stateOf = [&states](int node) { return states[static_cast<std::size_t>(node)]; };

    const QByteArray name = search.toUtf8();
    const auto lw = static_cast<float>(cmd_ln_float_r(ps_get_config(handle_.get()), "-lw"));
    const std::unique_ptr<fsg_model_t, FreeGrammar> grammar(
        fsg_model_init(name.constData(), ps_get_logmath(handle_.get()), lw, stateCount));
    grammar->start_state = start;
    grammar->final_state = end;

    const auto connect = [&grammar](int from, int to) {
        fsg_model_null_trans_add(grammar.get(), from, to, evenLogProbability);
    };
    connect(start, stateOf(graph.wakeRoot()));
    if (expecting == Expecting::Command) {
        connect(start, stateOf(graph.commandRoot()));
    }
    for (std::size_t i = 0; i < graph.nodes().size(); ++i) {
        const PhraseGraph::Node& node = graph.nodes()[i];
        if (node.isEnd && states[i] != end) {
            connect(states[i], end);
            if (graph.isWakeNode(static_cast<int>(i))) {
                connect(states[i], stateOf(graph.commandRoot()));
            }
        }
        for (const PhraseGraph::Edge& edge : node.edges) {
            const int word = fsg_model_word_add(grammar.get(), edge.word.toUtf8().constData());
            fsg_model_trans_add(grammar.get(), states[i], stateOf(edge.target), evenLogProbability, word);
        }
    }
    glist_free(fsg_model_null_trans_closure(grammar.get(), nullptr));
    if (ps_set_fsg(handle_.get(), name.constData(), grammar.get()) != 0) {
        return false;
    }
    searches_ << search;
    return true;
}

bool Decoder::addPhoneLoop(const QString& search) {
    if (ps_set_allphone(handle_.get(), search.toUtf8().constData(), nullptr) != 0) {
        return false;
    }
    searches_ << search;
    phoneLoop_ = search;
    return true;
}

void Decoder::removeSearch(const QString& search) {
    end();
    if (searches_.removeOne(search)) {
        ps_unset_search(handle_.get(), search.toUtf8().constData());
    }
}

std::vector<float> Decoder::expectedMean(std::span<const std::int16_t> opening) {
    if (opening.empty()) {
        return initialMean_;
    }
    std::vector<float> sum = initialMean_;
    for (float& value : sum) {
        value *= weightOfTraining;
    }
    float frameCount = weightOfTraining;
    fe_t* frontEnd = ps_get_fe(handle_.get());
    fe_start_stream(frontEnd);
    fe_start_utt(frontEnd);
    std::vector<float> frame(initialMean_.size());
    float* row = frame.data();
    const std::int16_t* next = opening.data();
    std::size_t left = opening.size();
    for (int done = 1; done > 0 && left > 0;) {
        done = 1;
        int index = 0;
        fe_process_frames(frontEnd, &next, &left, &row, &done, &index);
        if (done > 0) {
            std::ranges::transform(sum, frame, sum.begin(), std::plus());
            ++frameCount;
        }
    }
    int last = 0;
    fe_end_utt(frontEnd, row, &last);
    for (float& value : sum) {
        value /= frameCount;
    }
    return sum;
}

void Decoder::begin(const QString& search, std::span<const std::int16_t> opening) {
    end();
    ps_set_search(handle_.get(), search.toUtf8().constData());
    const std::vector<float> mean = expectedMean(opening);
    // A stream of its own: the places of words are counted from its beginning, and nothing is kept of the
    // noise before.
    ps_start_stream(handle_.get());
    cmn_live_set(cepstralMean(handle_.get()), mean.data());
    inUtterance_ = ps_start_utt(handle_.get()) == 0;
}

void Decoder::process(std::span<const std::int16_t> samples) {
    if (inUtterance_) {
        ps_process_raw(handle_.get(), samples.data(), samples.size(), FALSE, FALSE);
    }
}

void Decoder::end() {
    if (std::exchange(inUtterance_, false)) {
        ps_end_utt(handle_.get());
    }
}

void Decoder::decodeWhole(const QString& search, const Features& features) {
    begin(search);
    if (inUtterance_) {
        // The engine takes the mean away in place.
        Features own = features;
        std::vector<float*> rows = own.rows();
        ps_process_cep(handle_.get(), rows.data(), static_cast<int>(rows.size()), FALSE, TRUE);
    }
    end();
}

std::vector<HeardSegment> Decoder::heard() const {
    std::vector<HeardSegment> result;
    for (ps_seg_t* segment = ps_seg_iter(handle_.get()); segment != nullptr; segment = ps_seg_next(segment)) {
        QString word = QString::fromUtf8(ps_seg_word(segment));
        // "read(2)" is "read"; "<sil>", "[NOISE]" and "(NULL)" are no words.
        if (const qsizetype bracket = word.indexOf(u'('); bracket >= 0) {
            word.truncate(bracket);
        }
        if (word.startsWith(u'<') || word.startsWith(u'[')) {
            word.clear();
        }
        int first = 0;
        int last = 0;
        ps_seg_frames(segment, &first, &last);
        int acoustic = 0;
        int language = 0;
        int backoff = 0;
        ps_seg_prob(segment, &acoustic, &language, &backoff);
        if (last >= first) {
            result.push_back({word, first, last - first + 1, static_cast<double>(acoustic)});
        }
    }
    return result;
}

QStringList wordsOf(std::span<const HeardSegment> heard) {
    QStringList words;
    for (const HeardSegment& segment : heard) {
        if (!segment.word.isEmpty()) {
            words << segment.word;
        }
    }
    return words;
}

} // namespace brivandel
