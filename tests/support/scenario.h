// The language of the scenarios.
//
//   # A comment. Each call is one line, with its result and the files that it writes; below it,
//   # indented, what it fills, and what changes in memory.
//   AddContact group="Family" name="Anna" mobile="200"  => 0, writes contact
//       + contact name="Anna" mobile="200" group="Family"
//
// Arguments have names and the escapes of XML; a pointer that is left out is null. A scenario
// begins on the five default groups. Besides the operations of the directory, some set the scene:
//
//   Start                      over files with the groups and contacts below it, by default the
//                              default groups; many="9" makes nine, with numbers in their names
//   Restart                    over the files that are there
//   WriteFile file="contact"   puts the text below it into that file, as RemoveFile removes it and
//                              ShowFile shows it: contact, group, export or a path
//   SetScreen colour="0"       a plain screen, as SetSwitch value="1" sets the configuration
//   SetReloading on="1"        the directory takes no changes
//   ChangeContact contact="Anna" mobile="201"    an update that changes these fields alone
//
// A record to fill has the values that the call gives it.

#ifndef NSDIRECTORY_TESTS_SUPPORT_SCENARIO_H
#define NSDIRECTORY_TESTS_SUPPORT_SCENARIO_H

#include <functional>

#include "tests/support/directory_model.h"

struct CallData
{
    std::string m_strLine;  // the operation and its arguments
    std::string m_strFile = {};

    std::string Name() const { return m_strLine.substr(0, m_strLine.find(' ')); }
};
using Calls = std::vector<CallData>;
class CArguments;

struct OperationData
{
    const char* m_pName;
    std::size_t m_nWeight;  // how often random calls make it
    const char* m_pTakes;   // the arguments that they give it, name=kind if the two differ
    Texts (*m_pLibrary)(Manager& d, CArguments& c);
    Texts (*m_pModel)(CDirectoryModel& d, CArguments& c);  // null if it changes no directory
};
extern const std::vector<OperationData> OPERATIONS;

// What a call did, as lines of a scenario; the first is the result with the writes.
struct StepData
{
    Texts m_library, m_model;
    Texts m_wrong;  // what no call may leave behind, and files that differ from the model's
};

// Makes calls of the directory, and the same of the model, from an empty folder on.
class CReplay
{
  public:
    CReplay();
    StepData Make(CallData call);

  private:
    CDirectoryModel m_model;
    Entries m_entries;  // of both
};

// The directory alone makes the call: its result and what it fills.
Texts MakeAlone(const CallData& call);

// A call of a scenario, and what must come of it.
struct ScenarioStep
{
    std::string m_strBefore;  // comments
    CallData m_call;
    Texts m_expected;
};
std::vector<ScenarioStep> ReadScenario(const std::string& strPath);
std::string ScenarioText(const CallData& call, const Texts& outcome);
Texts Split(const std::string& strText, char cEnd);

// Empty, or the call and the few lines that show what is wrong with it.
std::string DifferenceText(const CallData& call, const Texts& expected, const StepData& step);

// -- Random calls ---------------------------------------------------------------------------------

// The call that these choices make, each a number below the one given.
using Choice = std::function<std::size_t(std::size_t nEnd)>;
CallData RandomCall(const Choice& below);

// Empty, or the first call that the directory and the model make in different ways, and the
// scenario that leads there, cut down to the calls that it needs.
std::string FailureOf(const Calls& calls, bool bCutDown = true);

#endif  // NSDIRECTORY_TESTS_SUPPORT_SCENARIO_H
