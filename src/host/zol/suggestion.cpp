// Edit distance over names, letters of either case being equal.
#include "host/zol/suggestion.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>

namespace Zol {

namespace {

constexpr std::size_t kLongestName = 64;
constexpr std::size_t kMostNames = 3;

[[nodiscard]] bool sameLetter(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

// The number of letters to insert, remove or replace to come from one text to the other.
[[nodiscard]] std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      std::size_t const replaced = diagonal + (sameLetter(a[i], b[j]) ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::vector<std::string> nearestNames(std::string_view name,
                                      std::vector<std::string> const& names) {
  if (name.size() > kLongestName) return {};
  std::vector<std::pair<std::size_t, std::string>> near;
  for (std::string const& candidate : names) {
    std::size_t const distance = editDistance(name, candidate);
    if (distance <= std::max<std::size_t>(2, candidate.size() / 3)) {
      near.emplace_back(distance, candidate);
    }
  }
  std::ranges::stable_sort(near, {}, &std::pair<std::size_t, std::string>::first);
  near.resize(std::min(near.size(), kMostNames));
  std::vector<std::string> result;
  for (auto& [distance, candidate] : near) result.push_back(std::move(candidate));
  return result;
}

std::string alternatives(std::vector<std::string> const& names) {
  std::string result;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) result += i + 1 == names.size() ? " or " : ", ";
    result += names[i];
  }
  return result;
}

std::string suggestion(std::string_view name, std::vector<std::string> const& names) {
  std::vector<std::string> const near = nearestNames(name, names);
  return alternatives(near.empty() ? names : near);
}

}  // namespace Zol
