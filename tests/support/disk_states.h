// What a disk may show after a power cut.
//
// Of a file that was not synced: what was synced before, what it held before it was emptied, what
// it holds now, or that cut, partly zeros, or both. What a sync failed for is not brought back by a
// later one. Creations, renames and removals of which a folder was not synced have happened or not,
// each by itself; a renamed file may also be there twice.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DISK_STATES_H
#define NSDIRECTORY_TESTS_SUPPORT_DISK_STATES_H

#include <fcntl.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>

#include "tests/support/disk_calls.h"

using Files = std::map<std::string, std::string>;  // content by path

class CDiskStates
{
  public:
    // At the beginning all is synced. Files are cut at that many places.
    CDiskStates(const Files& files, std::size_t nCuts) : m_nCuts(nCuts)
    {
        for (const auto& [strPath, strText] : files) {
            m_entries[strPath] = std::make_shared<Node>(Node{strText});
        }
        m_entriesAtFirst = m_entries;
    }

    void Apply(const DiskCallData& call)
    {
        Node* const pNode = m_mapOpen[call.m_nFile].get();  // null for a folder
        if (call.m_call == DiskCall::WRITE) {
            Change(*pNode, pNode->m_strNow + call.m_strText);
        } else if (call.m_call == DiskCall::SYNC && pNode != nullptr) {
            pNode->m_bLost = pNode->m_bLost || call.m_end != DiskEnd::DONE;
            pNode->m_listOld.resize(pNode->m_bLost ? pNode->m_listOld.size() : 0);
        } else if (call.m_end == DiskEnd::DONE) {
            ApplyToFolder(call);
        }
    }

    // What a program sees now.
    Files Now() const
    {
        Files files;
        for (const auto& [strPath, pNode] : m_entries) {
            files[strPath] = pNode->m_strNow;
        }
        return files;
    }

    // Adds what a start after a power cut now may see. If nothing is ever synced that grows without
    // end: then false, and a part of it.
    bool Collect(std::set<Files>& states) const
    {
        constexpr std::size_t MOST = 5000;
        bool bAll = true;
        for (const Entries& entries : Layouts()) {
            std::vector<Files> partial(1);
            for (const auto& [strPath, pNode] : entries) {
                std::vector<Files> more;
                for (const std::string& strContent : Contents(*pNode)) {
                    for (std::size_t n = 0; n < partial.size() && more.size() < MOST; ++n) {
                        more.emplace_back(partial[n])[strPath] = strContent;
                    }
                }
                partial.swap(more);
            }
            bAll = bAll && partial.size() + states.size() < MOST;
            if (bAll) {
                states.insert(partial.begin(), partial.end());
            }
        }
        return bAll;
    }

  private:
    struct Node
    {
        std::string m_strNow;
        std::vector<std::string> m_listOld = {};  // not empty: m_strNow is not synced
        bool m_bLost = false;                     // a sync failed
    };
    using NodePtr = std::shared_ptr<Node>;
    using Entries = std::map<std::string, NodePtr>;
    struct EntryData
    {
        std::string m_strPath;
        NodePtr m_pNode;  // null: the entry goes
        bool m_bSynced = false;
    };
    using Operation =
        std::vector<EntryData>;  // one entry, or the two of a rename, the new one first

    static void Change(Node& node, const std::string& strText)
    {
        if (node.m_listOld.empty() || strText.empty()) {  // additions are but other cuts
            node.m_listOld.push_back(node.m_strNow);
            node.m_bLost = false;
        }
        node.m_strNow = strText;
    }

    void ApplyToFolder(const DiskCallData& call)
    {
        if (call.m_call == DiskCall::OPEN) {
            Open(call);
        } else if (call.m_call == DiskCall::SYNC) {
            SyncFolder(call.m_strPath);
        } else if (call.m_call == DiskCall::RENAME) {
            Note({{call.m_strText, m_entries.at(call.m_strPath)}, {call.m_strPath, nullptr}});
        } else if (call.m_call == DiskCall::UNLINK) {
            Note({{call.m_strPath, nullptr}});
        }
    }

    void Open(const DiskCallData& call)
    {
        const bool bThere = m_entries.count(call.m_strPath) != 0;
        if (!bThere && (call.m_nFlags & O_CREAT) != 0) {
            Note({{call.m_strPath, std::make_shared<Node>()}});
        } else if (bThere && (call.m_nFlags & O_TRUNC) != 0) {
            Change(*m_entries[call.m_strPath], "");
        }
        const auto pos = m_entries.find(call.m_strPath);
        m_mapOpen[call.m_nFile] = pos == m_entries.end() ? nullptr : pos->second;
    }

    void Note(const Operation& operation)
    {
        for (const EntryData& entry : operation) {
            Do(entry, m_entries);
        }
        m_operations.push_back(operation);
    }
    static void Do(const EntryData& entry, Entries& entries)
    {
        entries.erase(entry.m_strPath);
        if (entry.m_pNode != nullptr) {
            entries[entry.m_strPath] = entry.m_pNode;
        }
    }

    void SyncFolder(const std::string& strFolder)
    {
        for (Operation& operation : m_operations) {
            for (EntryData& entry : operation) {
                const std::filesystem::path path(entry.m_strPath);
                entry.m_bSynced = entry.m_bSynced || path.parent_path() == strFolder;
            }
        }
    }
    static bool IsSynced(const Operation& operation)
    {
        return std::all_of(operation.begin(), operation.end(), [](auto& e) { return e.m_bSynced; });
    }

    std::set<Entries> Layouts() const
    {
        std::set<Entries> layouts{m_entriesAtFirst};
        for (const Operation& operation : m_operations) {
            std::set<Entries> after;
            for (Entries entries : layouts) {
                for (const EntryData& entry : operation) {
                    if (!IsSynced(operation)) {
                        after.insert(entries);
                    }
                    Do(entry, entries);
                }
                after.insert(entries);
            }
            layouts.swap(after);
        }
        return layouts;
    }

    std::set<std::string> Contents(const Node& node) const
    {
        const std::string& str = node.m_strNow;
        std::set<std::string> contents(node.m_listOld.begin(), node.m_listOld.end());
        contents.insert(str);
        for (std::size_t n = 0; !node.m_listOld.empty() && !str.empty() && n < m_nCuts; ++n) {
            const std::size_t nCut = (str.size() - 1) * n / (m_nCuts - 1);  // up to the last byte
            const std::string strZeros(str.size() - nCut, '\0');
            contents.insert({str.substr(0, nCut), str.substr(0, nCut) + strZeros, strZeros,
                             strZeros + str.substr(str.size() - nCut)});
        }
        return contents;
    }

    std::size_t m_nCuts;
    Entries m_entries, m_entriesAtFirst;  // the former as programs see them
    std::vector<Operation> m_operations = {};
    std::map<int, NodePtr> m_mapOpen = {};
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DISK_STATES_H
