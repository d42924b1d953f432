// One line of the table of results: a work of the library beside its reference.

#ifndef NSDIRECTORY_BENCH_ROW_H
#define NSDIRECTORY_BENCH_ROW_H

#include <functional>
#include <string>
#include <vector>

using Step = std::function<void()>;

// Both do the same work each time they are called.
struct Pair
{
    Step m_product;
    Step m_reference;
    // Runs after each of them, uncounted, if the work leaves something to undo. Without it a
    // step can be repeated at once, and short ones are counted in batches.
    Step m_restore = {};
    int m_nWorks = 1;  // works in one step; times are reported for one of them
};

inline constexpr double NO_AIM = 0.0;  // shown in the table, judged by nobody

struct Row
{
    std::string m_strName;
    double m_dTimeAim;
    double m_dInstructionAim;  // NO_AIM: instructions are not counted
    int m_nPairs;
    std::function<Pair()> m_prepare;
    std::string m_strSeries = {};  // the line of the chart that it is a point of
    int m_nContacts = 0;
    bool m_bInTable = true;
};

// The rows of each chapter, appended in the order of the table.
void AppendIndexRows(std::vector<Row>& rows);
void AppendWalkRows(std::vector<Row>& rows);
void AppendSearchRows(std::vector<Row>& rows);
void AppendFileRows(std::vector<Row>& rows);
void AppendEditRows(std::vector<Row>& rows);
void AppendContainerRows(std::vector<Row>& rows);

#endif  // NSDIRECTORY_BENCH_ROW_H
