#include "language/phrase_maker.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view noiseWords[] = {
    "a",
    "an",
    "the",
};
static_assert(std::is_sorted(std::begin(noiseWords), std::end(noiseWords)));

}  // namespace

bool IsNoiseWord(ConstData word) {
    return std::binary_search(std::begin(noiseWords), std::end(noiseWords), word.View());
}
