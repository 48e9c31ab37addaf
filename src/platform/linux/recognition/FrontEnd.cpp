#include "platform/linux/recognition/FrontEnd.h"

#include "platform/linux/recognition/CepstralVariance.h"

#include <QByteArray>

#include <sphinxbase/cmd_ln.h>
#include <sphinxbase/fe.h>

#include <array>
#include <utility>

namespace brivandel {

void FrontEnd::Delete::operator()(fe_s* handle) const {
    fe_free(handle);
}

std::unique_lock<std::mutex> FrontEnd::lockMaking() {
    static std::mutex mutex;
    return std::unique_lock(mutex);
}

std::unique_ptr<FrontEnd> FrontEnd::make(cmd_ln_t* configuration, double resonance) {
    // The engine's warp leaves the ends of the filter bank where they are, and moves what lies between them
    // by a third of the factor. With the ends moved as well, everything moves by all of it.
    constexpr auto* warp = "-warp_params";
    constexpr std::array ends = {"-lowerf", "-upperf"};
    const auto lock = lockMaking();
    const QByteArray warpBefore = cmd_ln_str_r(configuration, warp);
    std::array<double, ends.size()> endsBefore{};
    for (std::size_t i = 0; i < ends.size(); ++i) {
        endsBefore[i] = cmd_ln_float_r(configuration, ends[i]);
        cmd_ln_set_float_r(configuration, ends[i], endsBefore[i] * resonance);
    }
    cmd_ln_set_str_r(configuration, warp, QByteArray::number(resonance).constData());
    Handle handle(fe_init_auto_r(configuration));
    cmd_ln_set_str_r(configuration, warp, warpBefore.constData());
    for (std::size_t i = 0; i < ends.size(); ++i) {
        cmd_ln_set_float_r(configuration, ends[i], endsBefore[i]);
    }
    return handle ? std::unique_ptr<FrontEnd>(new FrontEnd(std::move(handle))) : nullptr;
}

Features FrontEnd::features(std::span<const std::int16_t> samples) {
    fe_t* const frontEnd = handle_.get();
    fe_start_stream(frontEnd);
    fe_start_utt(frontEnd);
    std::size_t left = samples.size();
    int expected = 0;
    fe_process_frames(frontEnd, nullptr, &left, nullptr, &expected, nullptr);

    Features features;
    features.coefficientCount = static_cast<std::size_t>(fe_get_output_size(frontEnd));
    // The end may give one more.
    features.values.resize(static_cast<std::size_t>(expected + 1) * features.coefficientCount);
    std::vector<float*> rows = features.rows();
    const std::int16_t* next = samples.data();
    left = samples.size();
    int count = expected;
    int firstOfThese = 0;
    fe_process_frames(frontEnd, &next, &left, rows.data(), &count, &firstOfThese);
    int more = 0;
    fe_end_utt(frontEnd, rows[static_cast<std::size_t>(count)], &more);
    features.values.resize(static_cast<std::size_t>(count + more) * features.coefficientCount);
    limitVariance(features);
    return features;
}

std::vector<float*> Features::rows() {
    std::vector<float*> result;
    for (std::size_t at = 0; at < values.size(); at += coefficientCount) {
        result.push_back(values.data() + at);
    }
    return result;
}

} // namespace brivandel
