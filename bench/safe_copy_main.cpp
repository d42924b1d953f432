// What the guard of the safe copy costs on a directory of full size: bytes written, syncs, and time
// beside the same edit without it. Prints one table. The working directory lies in TMPDIR, and the
// times are those of the disk below it.

#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

#include "bench/directory.h"
#include "safekeeping/safe_copy.h"

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::CSafeCopy;

namespace {

constexpr int TURNS = 21;
constexpr int FULL_COUNT = 1000 + BLACK_COUNT;

struct CountsData
{
    std::size_t m_nBytes = 0;
    int m_nSyncs = 0;
};
CountsData g_counts;

template <class Function>
Function* Real(Function* /*pOwn*/, const char* pName)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, pName));
}

}  // namespace

// What an executable defines under these names serves its shared libraries too.
extern "C" {

size_t fwrite(const void* data, size_t size, size_t count, FILE* file)
{
    g_counts.m_nBytes += size * count;
    return Real(fwrite, "fwrite")(data, size, count, file);
}

ssize_t write(int file, const void* data, size_t size)
{
    g_counts.m_nBytes += size;
    return Real(write, "write")(file, data, size);
}

int fsync(int file)
{
    ++g_counts.m_nSyncs;
    return Real(fsync, "fsync")(file);
}
}

namespace {

using Edit = std::function<int(CContactLocalManager&)>;

struct EditRow
{
    const char* m_pName;
    Edit m_edit;
    Edit m_back;  // puts the directory back as it was
};

NS_DIRECTORY::ContactGroupData Group(const char* pName, const char* pRing = "")
{
    return {pName, pRing};
}

// Seconds of the median turn, and what one turn counts.
double Measure(const std::function<void()>& edit, const std::function<void()>& back,
               CountsData& counts)
{
    std::vector<double> seconds;
    for (int n = 0; n < TURNS; ++n) {
        g_counts = CountsData();
        const auto start = std::chrono::steady_clock::now();
        edit();
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        counts = g_counts;
        seconds.push_back(time.count());
        back();
    }
    std::nth_element(seconds.begin(), seconds.begin() + TURNS / 2, seconds.end());
    return seconds[TURNS / 2];
}

void PrintRow(const EditRow& row, CSafeCopy& safe, CContactLocalManager& directory)
{
    CountsData bare;
    CountsData guarded;
    const double dBare =
        Measure([&] { (void)row.m_edit(directory); }, [&] { (void)row.m_back(directory); }, bare);
    Require(safe.Keep() == 1, "a copy");
    const double dGuarded = Measure([&] { Require(safe.Edit(row.m_edit) >= 0, "guarded edits"); },
                                    [&] { (void)safe.Edit(row.m_back); }, guarded);
    std::printf("| %s | %.0f kB | %.0f kB | %d | %.2f ms | %.1f ms | %.1f |\n", row.m_pName,
                static_cast<double>(bare.m_nBytes) / 1e3,
                static_cast<double>(guarded.m_nBytes) / 1e3, guarded.m_nSyncs, dBare * 1e3,
                dGuarded * 1e3, dGuarded / dBare);
}

std::vector<EditRow> Rows(const SampleContact& last)
{
    const auto contact = BoundaryRecord(last);
    const auto add = [contact](auto& d) { return d.AddContact(contact.m_strGroupName, contact); };
    const auto remove = [contact](auto& d) { return d.RemoveContact(contact.m_strDisplayName); };
    const auto addGroup = [](auto& d) { return d.AddGroup(Group("New")); };
    const auto removeGroup = [](auto& d) { return d.RemoveGroup("New"); };
    const std::string strGroup = last.m_strGroup;
    const auto rename = [strGroup](auto& d) {
        return d.UpdateGroupData(strGroup.c_str(), Group("New"));
    };
    const auto renameBack = [strGroup](auto& d) {
        return d.UpdateGroupData("New", Group(strGroup.c_str()));
    };
    const auto ring = [strGroup](auto& d) {
        return d.UpdateGroupData(strGroup.c_str(), Group(strGroup.c_str(), "bell.wav"));
    };
    const auto ringBack = [strGroup](auto& d) {
        return d.UpdateGroupData(strGroup.c_str(), Group(strGroup.c_str()));
    };
    return {{"`RemoveContact`", remove, add},
            {"`AddGroup`", addGroup, removeGroup},
            {"`UpdateGroupData`, new name", rename, renameBack},
            {"`UpdateGroupData`, ring", ring, ringBack}};
}

}  // namespace

int main()
{
    const CWorkFolder folder;
    const auto contacts = SampleContacts(FULL_COUNT);
    CContactLocalManager& directory = StartDirectory(contacts);
    std::filesystem::create_directory("copies");
    CSafeCopy safe("copies");
    std::puts("| Edit | bare | guarded | syncs | bare | guarded | ratio |");
    std::puts("|---|---:|---:|---:|---:|---:|---:|");
    for (const EditRow& row : Rows(contacts.back())) {
        PrintRow(row, safe, directory);
    }
    return EXIT_SUCCESS;
}
