#include "measure.h"

#include <algorithm>
#include <string>
#include <vector>

namespace bench {
namespace {
std::vector<std::string> chosen;
}

void select(std::span<char*> names) {
    chosen.assign(names.begin(), names.end());
}

bool selected(std::string_view name) {
    return chosen.empty() || std::find(chosen.begin(), chosen.end(), name) != chosen.end();
}

}  // namespace bench
