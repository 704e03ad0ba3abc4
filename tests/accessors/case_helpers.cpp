#include "case_helpers.h"

#include "spy_client.h"

namespace zqtest {

namespace {

// Each case's words; `functions` counts the functions the table holds.
template <class Case>
void addInfos(std::span<const Case> cases, std::vector<CaseInfo>& out, size_t& functions) {
  for (const Case& c : cases) {
    out.push_back(c.info);
    functions += (c.get != nullptr) + (c.set != nullptr) + (c.reset != nullptr);
  }
}

}  // namespace

void expectRecord(const char* verb, const CaseInfo& info) {
  static const SpyClient spy;
  ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
  const std::string line = spy.line();
  const std::string head = "Vorex" + std::string(verb) + info.traced + " params(";
  EXPECT_EQ(line.substr(0, head.size()), head) << line;
  std::string second = *info.channelParam ? info.channelParam : (verb[0] == 'R' ? "" : "data");
  if (std::string_view(info.traced) != info.name) second = "deviceNames";
  if (second.empty())
    EXPECT_NE(line.find(" params(1): taskHandle@0:"), std::string::npos) << line;
  else
    EXPECT_NE(line.find(" " + second + "@1:"), std::string::npos) << line;
}

std::vector<CaseInfo> allCases(size_t* functionCount) {
  std::vector<CaseInfo> out;
  size_t functions = 0;
  addInfos(casesI32(), out, functions);
  addInfos(casesU32(), out, functions);
  addInfos(casesU32Size(), out, functions);
  addInfos(casesU64(), out, functions);
  addInfos(casesF64(), out, functions);
  addInfos(casesBool(), out, functions);
  addInfos(casesString(), out, functions);
  addInfos(casesStringList(), out, functions);
  addInfos(casesF64Array(), out, functions);
  addInfos(casesI32Array(), out, functions);
  if (functionCount) *functionCount = functions;
  return out;
}

}  // namespace zqtest
