// Reading values out of status reports in tests, by path.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace zqtest {

inline constexpr const char* kAbsent = "<absent>";

// The value at `path` in `report`: each step is a member key, or "#n" for the n-th element of
// an array. Strings come back decoded, other values as their JSON text; kAbsent when a step
// is missing or the report is null.
std::string reportAt(const char* report, std::initializer_list<std::string_view> path);

// The member names of the object at `path`, in the order in which they stand.
std::vector<std::string> reportKeys(const char* report, std::initializer_list<std::string_view> path = {});

}  // namespace zqtest
