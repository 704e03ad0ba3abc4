#include "case_helpers.h"

namespace zqtest {

namespace {

template <class Case>
void addInfos(std::span<const Case> cases, std::vector<CaseInfo>& out) {
  for (const Case& c : cases) out.push_back(c.info);
}

}  // namespace

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
