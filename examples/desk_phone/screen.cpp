#include "desk_phone/screen.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "desk_phone/text_width.h"

namespace desk_phone {

namespace {

constexpr std::size_t DEFAULT_WIDTH = 80;
constexpr std::size_t LEAST_WIDTH = 20;
constexpr std::size_t MOST_WIDTH = 500;
constexpr std::size_t MOST_BOX_WIDTH = 60;
constexpr std::size_t GAP = 2;
constexpr std::size_t MOST_CHOICE_LINES = 12;

std::string Repeat(const char* pText, std::size_t nTimes)
{
    std::string strResult;
    for (; nTimes != 0; --nTimes) {
        strResult += pText;
    }
    return strResult;
}

// Characters of no width, which no font shows.
constexpr char EMPHASIS_BEGIN[] = "\u2062";
constexpr char EMPHASIS_END[] = "\u2063";

bool IsTerminal()
{
    return isatty(STDOUT_FILENO) != 0;
}

void ReplaceAll(std::string& strText, const std::string& strOld, const std::string& strNew)
{
    for (std::size_t n = strText.find(strOld); n != std::string::npos;
         n = strText.find(strOld, n + strNew.size())) {
        strText.replace(n, strOld.size(), strNew);
    }
}

// A cell as it is sent to the terminal. What ends the emphasis may have been cut off.
std::string ToOutput(std::string strCell)
{
    const bool bEmphasis = strCell.find(EMPHASIS_BEGIN) != std::string::npos;
    if (IsTerminal() && bEmphasis) {
        ReplaceAll(strCell, EMPHASIS_BEGIN, "\033[1;4m");
        ReplaceAll(strCell, EMPHASIS_END, "\033[0m");
        strCell += "\033[0m";
    }
    return strCell;
}

std::string WithoutTrailingBlanks(std::string strText)
{
    strText.erase(strText.find_last_not_of(' ') + 1);
    return strText;
}

}  // namespace

std::size_t ScreenWidth()
{
    std::size_t nWidth = 0;
    winsize size{};
    const char* pColumns = std::getenv("COLUMNS");
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) {
        nWidth = size.ws_col;
    } else if (pColumns != nullptr) {
        nWidth = std::strtoul(pColumns, nullptr, 10);
    }
    return nWidth == 0 ? DEFAULT_WIDTH : std::clamp(nWidth, LEAST_WIDTH, MOST_WIDTH);
}

void PrintText(const std::string& strText, const std::string& strLabel)
{
    std::string strStart = strLabel;
    for (const std::string& strLine : Wrap(strText, ScreenWidth() - Width(strLabel))) {
        std::cout << WithoutTrailingBlanks(strStart + strLine) << '\n';
        strStart.assign(Width(strLabel), ' ');
    }
}

void PrintCut(const std::string& strText)
{
    std::cout << Cut(strText, ScreenWidth()) << '\n';
}

std::string Emphasised(const std::string& strText)
{
    return IsTerminal() ? EMPHASIS_BEGIN + strText + EMPHASIS_END : "[" + strText + "]";
}

void PrintPairs(const std::vector<std::pair<std::string, std::string>>& pairs)
{
    std::size_t nLabel = 0;
    for (const auto& pair : pairs) {
        nLabel = std::max(nLabel, Width(pair.first));
    }
    nLabel = std::min(nLabel, ScreenWidth() / 2 - GAP);
    for (const auto& pair : pairs) {
        const bool bFits = Width(pair.first) <= nLabel;
        if (!bFits) {
            PrintText(pair.first);
        }
        PrintText(pair.second, Fit(bFits ? pair.first : "", nLabel) + std::string(GAP, ' '));
    }
}

void PrintChoices(const std::vector<std::string>& words)
{
    std::size_t nWidth = 0;
    for (const std::string& strWord : words) {
        nWidth = std::max(nWidth, Width(strWord) + GAP);
    }
    nWidth = std::min(nWidth, ScreenWidth());
    const std::size_t nInLine = ScreenWidth() / nWidth;
    std::string strLine;
    for (std::size_t n = 0; n < std::min(words.size(), nInLine * MOST_CHOICE_LINES); ++n) {
        strLine += Fit(words[n], nWidth);
        if ((n + 1) % nInLine == 0 || n + 1 == words.size()) {
            std::cout << WithoutTrailingBlanks(std::exchange(strLine, {})) << '\n';
        }
    }
    if (words.size() > nInLine * MOST_CHOICE_LINES) {
        PrintText("… and " + std::to_string(words.size() - nInLine * MOST_CHOICE_LINES) + " more");
    }
}

void PrintBox(const std::vector<std::string>& lines)
{
    const std::size_t nInner = std::min(ScreenWidth(), MOST_BOX_WIDTH) - 4;
    const std::string strEdge = Repeat("─", nInner + 2);
    std::cout << "┌" << strEdge << "┐\n";
    for (const std::string& strText : lines) {
        for (const std::string& strLine : Wrap(strText, nInner)) {
            std::cout << "│ " << Fit(strLine, nInner) << " │\n";
        }
    }
    std::cout << "└" << strEdge << "┘\n";
}

void CTable::AddColumn(const std::string& strTitle, std::size_t nLeast, bool bRight)
{
    m_columns.push_back({nLeast, bRight, Width(strTitle)});
    if (m_rows.empty()) {
        m_rows.emplace_back();
    }
    m_rows.front().push_back(strTitle);
}

void CTable::AddRow(const std::vector<std::string>& row)
{
    for (std::size_t n = 0; n < row.size(); ++n) {
        m_columns[n].m_nWidth = std::max(m_columns[n].m_nWidth, Width(row[n]));
    }
    m_rows.push_back(row);
}

std::vector<CTable::ColumnData> CTable::MyLayout(std::size_t nScreen) const
{
    std::vector<ColumnData> shown;
    std::size_t nLeast = 0;
    std::size_t nTotal = 0;
    for (ColumnData column : m_columns) {
        column.m_nLeast = std::min(column.m_nLeast, column.m_nWidth);
        const std::size_t nGap = shown.empty() ? 0 : GAP;
        if (nLeast + nGap + column.m_nLeast > nScreen) {
            break;
        }
        nLeast += nGap + column.m_nLeast;
        nTotal += nGap + column.m_nWidth;
        shown.push_back(column);
    }
    const auto HasLessToSpare = [](const ColumnData& left, const ColumnData& right) {
        return left.m_nWidth - left.m_nLeast < right.m_nWidth - right.m_nLeast;
    };
    for (; nTotal > nScreen; --nTotal) {
        --std::max_element(shown.begin(), shown.end(), HasLessToSpare)->m_nWidth;
    }
    return shown;
}

void CTable::Print() const
{
    const std::vector<ColumnData> shown = MyLayout(ScreenWidth());
    for (std::size_t nRow = 0; nRow < m_rows.size(); ++nRow) {
        std::string strLine;
        std::string strRule;
        for (std::size_t n = 0; n < shown.size(); ++n) {
            const std::string strGap(n == 0 ? 0 : GAP, ' ');
            strLine +=
                strGap + ToOutput(Fit(m_rows[nRow][n], shown[n].m_nWidth, shown[n].m_bRight));
            strRule += strGap + Repeat("─", shown[n].m_nWidth);
        }
        std::cout << WithoutTrailingBlanks(strLine) << '\n';
        if (nRow == 0) {
            std::cout << strRule << '\n';
        }
    }
}

}  // namespace desk_phone
