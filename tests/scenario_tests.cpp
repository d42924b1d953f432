// Plays each file of tests/scenarios/, and reports what differs.
//
// With NSDIRECTORY_SCENARIOS=rewrite the files are written again with the results.

#include <set>

#include "tests/support/scenario.h"

namespace {

class ScenarioTest : public DirectoryTest
{
  public:
    explicit ScenarioTest(std::string strPath) : m_strPath(std::move(strPath)) {}

    void TestBody() override
    {
        const char* pOption = std::getenv("NSDIRECTORY_SCENARIOS");
        const bool bRewrites = pOption != nullptr && pOption == std::string("rewrite");
        const std::vector<ScenarioStep> steps = ReadScenario(m_strPath);
        std::string strText;
        CReplay replay;
        for (const ScenarioStep& step : steps) {
            const StepData made = replay.Make(step.m_call);
            const Texts& expected = bRewrites ? made.m_model : step.m_expected;
            strText += step.m_strBefore + ScenarioText(step.m_call, made.m_library);
            const std::string strDifference = DifferenceText(step.m_call, expected, made);
            if (!strDifference.empty()) {
                FAIL() << std::filesystem::path(m_strPath).stem() << ": " << strDifference;
            }
        }
        if (bRewrites) {
            WriteFile(m_strPath, strText);
        }
    }

  private:
    std::string m_strPath;
};

const auto SCENARIOS = [] {
    const std::filesystem::directory_iterator begin(SCENARIO_FOLDER), end;
    const std::set<std::filesystem::path> paths(begin, end);
    for (const std::filesystem::path& path : paths) {
        testing::RegisterTest("Scenario", path.stem().c_str(), nullptr, nullptr, __FILE__, __LINE__,
                              [path]() -> DirectoryTest* { return new ScenarioTest(path); });
    }
    return paths;
}();

}  // namespace
