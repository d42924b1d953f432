#include "tests/support/scenario.h"

Texts Split(const std::string& strText, char cEnd)
{
    Texts parts;
    std::istringstream text(strText);
    for (std::string strPart; std::getline(text, strPart, cEnd);) {
        parts.push_back(strPart);
    }
    return parts;
}

std::string ScenarioText(const CallData& call, const Texts& outcome)
{
    std::string strText = call.m_strLine + (outcome[0].empty() ? "" : "  => ") + outcome[0] + '\n';
    for (const std::string& strLine : Split(call.m_strFile, '\n')) {
        strText += "    | " + strLine + '\n';
    }
    for (std::size_t n = 1; n < outcome.size(); ++n) {
        strText += "    " + outcome[n] + '\n';
    }
    return strText;
}

std::vector<ScenarioStep> ReadScenario(const std::string& strPath)
{
    std::vector<ScenarioStep> steps;
    std::string strBefore;
    for (const std::string& strLine : Split(ReadFile(strPath), '\n')) {
        if (strLine.empty() || strLine[0] == '#') {
            strBefore += strLine + '\n';
        } else if (strLine[0] != ' ') {
            const std::size_t nEnd = std::min(strLine.find("  => "), strLine.size());
            const std::string strResult = nEnd < strLine.size() ? strLine.substr(nEnd + 5) : "";
            steps.push_back({strBefore, {strLine.substr(0, nEnd)}, {strResult}});
            strBefore.clear();
        } else if (strLine.find("    | ") == 0) {
            steps.back().m_call.m_strFile += strLine.substr(6) + '\n';
        } else {
            steps.back().m_expected.push_back(strLine.substr(4));
        }
    }
    return steps;
}

std::string DifferenceText(const CallData& call, const Texts& expected, const StepData& step)
{
    std::string strText;
    // Of two lines alike at the start, what follows the last comma before they differ.
    const auto addMissing = [&](const char* pMark, const Texts& from, const Texts& in) {
        for (const std::string& strLine : from) {
            if (std::find(in.begin(), in.end(), strLine) != in.end()) {
                continue;
            }
            const auto isAlike = [&](auto& other) {
                return other.compare(0, 2, strLine, 0, 2) == 0;
            };
            const auto alike = std::find_if(in.begin(), in.end(), isAlike);
            const std::string strOther = alike == in.end() ? "" : *alike;
            const auto pos =
                std::mismatch(strLine.begin(), strLine.end(), strOther.begin(), strOther.end());
            const auto nComma =
                strLine.rfind(", ", static_cast<std::size_t>(pos.first - strLine.begin()));
            const bool bWhole = nComma == std::string::npos || strLine.size() < 100;
            strText +=
                pMark + (bWhole ? strLine : "..." + strLine.substr(nComma)).substr(0, 200) + '\n';
        }
    };
    addMissing("    expected: ", expected, step.m_library);
    addMissing("    but got:  ", step.m_library, expected);
    addMissing("    ", step.m_wrong, {});
    return strText.empty() && expected == step.m_library ? "" : call.m_strLine + '\n' + strText;
}
