#include "case_helpers.h"

#include "spy_client.h"

namespace zqtest {

namespace {

template <class Case>
void addInfos(std::span<const Case> cases, std::vector<CaseInfo>& out) {
  for (const Case& c : cases) out.push_back(c.info);
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

std::vector<CaseInfo> allCases() {
  std::vector<CaseInfo> out;
  addInfos(casesI32(), out);
  addInfos(casesU32(), out);
  addInfos(casesU32Size(), out);
  addInfos(casesU64(), out);
  addInfos(casesF64(), out);
  addInfos(casesBool(), out);
  addInfos(casesString(), out);
  addInfos(casesStringList(), out);
  addInfos(casesF64Array(), out);
  addInfos(casesI32Array(), out);
  return out;
}

}  // namespace zqtest
