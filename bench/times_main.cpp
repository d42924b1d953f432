// Times: each row runs its two sides turn by turn, and the medians over the turns count. What else
// happens on the machine then meets both sides alike.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>

#include "bench/directory.h"
#include "bench/row.h"

namespace {

constexpr double SHORTEST_TURN = 50e-6;  // seconds; below, the clock itself would be seen

double Seconds(const Step& step, int nRepeats)
{
    const auto start = std::chrono::steady_clock::now();
    for (int n = 0; n < nRepeats; ++n) {
        step();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

class CTurns
{
  public:
    explicit CTurns(Pair pair) : m_pair(std::move(pair))
    {
        // Once unmeasured, then once for the length of the turns.
        for (int n = 0; n < 2; ++n) {
            const double dTurn = Timed(m_pair.m_product);
            Timed(m_pair.m_reference);
            if (!m_pair.m_restore && dTurn < SHORTEST_TURN) {
                m_nRepeats = static_cast<int>(SHORTEST_TURN / dTurn) + 1;
            }
        }
    }

    // The sides take turns at being first.
    double RunBoth()
    {
        const bool bProductFirst = m_listRatio.size() % 2 == 0;
        double dReference = bProductFirst ? 0.0 : Timed(m_pair.m_reference);
        const double dProduct = Timed(m_pair.m_product);
        if (bProductFirst) {
            dReference = Timed(m_pair.m_reference);
        }
        m_listProduct.push_back(dProduct);
        m_listReference.push_back(dReference);
        m_listRatio.push_back(dProduct / dReference);
        return dProduct + dReference;
    }

    void Report(benchmark::State& state) const
    {
        state.counters["measured"] = Median(m_listProduct) / m_pair.m_nWorks;
        state.counters["reference"] = Median(m_listReference) / m_pair.m_nWorks;
        state.counters["ratio"] = Median(m_listRatio);
    }

  private:
    double Timed(const Step& step) const
    {
        const double dSeconds = Seconds(step, m_nRepeats) / m_nRepeats;
        if (m_pair.m_restore) {
            m_pair.m_restore();
        }
        return dSeconds;
    }

    Pair m_pair;
    int m_nRepeats = 1;
    std::vector<double> m_listProduct;
    std::vector<double> m_listReference;
    std::vector<double> m_listRatio;
};

void Measure(benchmark::State& state, const Row& row)
{
    CTurns turns(row.m_prepare());
    for (auto _ : state) {
        state.SetIterationTime(turns.RunBoth());
    }
    turns.Report(state);
    state.counters["aim"] = row.m_dTimeAim;
    state.counters["contacts"] = row.m_nContacts;
    state.counters["in_table"] = row.m_bInTable ? 1 : 0;
    state.SetLabel(row.m_strSeries);
}

std::vector<Row> AllRows()
{
    std::vector<Row> rows;
    AppendIndexRows(rows);
    AppendWalkRows(rows);
    AppendSearchRows(rows);
    AppendFileRows(rows);
    AppendEditRows(rows);
    AppendContainerRows(rows);
    return rows;
}

// Memory once taken stays with the process: or one side would pay for the pages that the other side
// gave back.
void KeepMemory()
{
    constexpr int NEVER = 1 << 30;
    Require(mallopt(M_TRIM_THRESHOLD, NEVER) != 0 && mallopt(M_MMAP_THRESHOLD, 1 << 25) != 0,
            "a heap that keeps its memory");
}

}  // namespace

int main(int argc, char** argv)
{
    KeepMemory();
    const CWorkFolder folder;
    for (const Row& row : AllRows()) {
        benchmark::RegisterBenchmark(row.m_strName.c_str(),
                                     [row](benchmark::State& state) { Measure(state, row); })
            ->Iterations(row.m_nPairs)
            ->UseManualTime();
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}
