#include "inspect/diff_parts.h"

#include <algorithm>

namespace veldrune::inspect {

bool Comparison::differs(std::int64_t begin, std::int64_t end) const {
    return !std::ranges::equal(a.image.at(begin, end - begin), b.image.at(begin, end - begin));
}

std::string counted(std::int64_t count, std::string_view unit) {
    return std::to_string(count).append(" ").append(unit).append(count == 1 ? "" : "s");
}

std::string plain(std::string_view key) {
    std::string text;
    while (!key.empty()) {
        std::string_view word = key.substr(0, key.find(' '));
        key.remove_prefix(std::min(key.size(), word.size() + 1));
        word.remove_prefix(std::min(word.find_first_not_of('0'), word.size() - 1));
        text.append(text.empty() ? "" : " ").append(word);
    }
    return text;
}

std::string spread(std::string_view unit, std::int64_t first, std::int64_t last) {
    if (first == last)
        return std::string(unit).append(" ").append(std::to_string(first));
    return std::string(unit)
        .append("s ")
        .append(std::to_string(first))
        .append("-")
        .append(std::to_string(last));
}

std::string number_list(std::string_view unit, const std::vector<int>& numbers) {
    std::string text(unit);
    text += numbers.size() > 1 ? "s " : " ";
    for (std::size_t i = 0, last = 0; i < numbers.size(); i = last + 1) {
        last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1)
            ++last;
        text.append(i == 0 ? "" : ", ").append(std::to_string(numbers[i]));
        if (last > i)
            text.append("-").append(std::to_string(numbers[last]));
    }
    return text;
}

} // namespace veldrune::inspect
