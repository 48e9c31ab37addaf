#pragma once

namespace brivandel {

/// One visitor out of several lambdas, for std::visit.
template <typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
// Clang 14 does not find it by itself.
template <typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

} // namespace brivandel
