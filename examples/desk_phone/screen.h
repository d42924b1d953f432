// What the telephone shows: wrapped lines, names with values, tables and the box of a call, all to
// the width of the terminal as it is at that moment.

#ifndef DESK_PHONE_SCREEN_H
#define DESK_PHONE_SCREEN_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace desk_phone {

// The columns of the terminal; of the variable COLUMNS where the output is none; 80 else.
std::size_t ScreenWidth();

// The text in as many lines as it takes, the first after the label, the others below its end.
void PrintText(const std::string& strText, const std::string& strLabel = "");

// One line, cut where it is too long.
void PrintCut(const std::string& strText);

// The text as a part of a table that catches the eye: in a terminal it is bold, elsewhere it stands
// in brackets.
std::string Emphasised(const std::string& strText);

// As many words side by side as there is room for, up to a dozen lines.
void PrintChoices(const std::vector<std::string>& words);

// Labels in one column, values in another. A label that is too wide has a line of its own.
void PrintPairs(const std::vector<std::pair<std::string, std::string>>& pairs);

// A frame around the lines.
void PrintBox(const std::vector<std::string>& lines);

// A table. Where it is too wide, columns are narrowed down to their least width, the one with the
// most to spare first; where that does not do, columns are left out from the right. So the most
// important one comes first.
class CTable
{
  public:
    void AddColumn(const std::string& strTitle, std::size_t nLeast, bool bRight = false);

    // One text for each column.
    void AddRow(const std::vector<std::string>& row);

    void Print() const;

  private:
    struct ColumnData
    {
        std::size_t m_nLeast;
        bool m_bRight;
        std::size_t m_nWidth;
    };

    // The columns that are shown, with the widths that they are shown in.
    std::vector<ColumnData> MyLayout(std::size_t nScreen) const;

    std::vector<ColumnData> m_columns;
    std::vector<std::vector<std::string>> m_rows;  // the titles first
};

}  // namespace desk_phone

#endif  // DESK_PHONE_SCREEN_H
