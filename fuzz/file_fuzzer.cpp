// Any two files: a load takes from them what the model takes, and the saves and loads that follow
// lose nothing more.
//
// Input: '0' for a plain screen or '1' for a colour one, the group file, a form feed, the contact
// file. An empty file is not there at all.

#include "fuzz/own_folder.h"
#include "tests/support/scenario.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    const std::string strInput(pData, pData + nSize);
    const std::size_t nSplit = std::min(strInput.find('\f'), strInput.size());
    const bool bColorful = !strInput.empty() && strInput[0] % 2 != 0;
    Calls calls{{bColorful ? "SetScreen colour=\"1\"" : "SetScreen colour=\"0\""}};
    const auto add = [&](const std::string& strName, const std::string& strText) {
        const std::string strFile = Attribute("file", strName);
        strText.empty() ? calls.push_back({"RemoveFile" + strFile})
                        : calls.push_back({"WriteFile" + strFile, strText});
    };
    add("group", strInput.substr(std::min<std::size_t>(1, nSplit), nSplit == 0 ? 0 : nSplit - 1));
    add("contact", nSplit < strInput.size() ? strInput.substr(nSplit + 1) : "");
    // Without groups the first save keeps the names of missing ones, and the second drops them.
    for (int n = 0; n < 3; ++n) {
        calls.push_back({"Restart"});
        calls.push_back({"SetDefaultPhoto photo=\"none\""});
    }
    const std::string strFailure = FailureOf(calls);
    EXPECT_TRUE(strFailure.empty()) << strFailure;
    return 0;
}
