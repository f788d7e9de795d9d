// Turns a script's text into its checked tree. In: text and the objects of the host. Out: the tree, or a
// Fault with number, words and line.
#pragma once

#include "maths/script/Program.h"

#include <span>

namespace vistor::script {

inline constexpr std::size_t kLongestScript = 100'000; ///< characters; more are "Out of memory"

/// Throws Fault.
std::shared_ptr<const Program> parse(std::u16string_view text, std::span<const HostEntry> hosts);

} // namespace vistor::script
