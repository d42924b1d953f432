#include "desk_phone/start.h"

#include <chrono>
#include <filesystem>
#include <stdexcept>

#include "desk_phone/screen.h"
#include "directory/data_files.h"

namespace desk_phone {

namespace {

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::CSafeCopy;

// Before the directory reads its files.
void Restore(CSafeCopy& safe)
{
    switch (safe.Restore()) {
        case 1:
            PrintText("An edit was cut or a file was broken: the copies are back.");
            break;
        case NS_DIRECTORY::SAFE_RET_NO_COPY:
            PrintText("A file is broken, and there is no whole copy of it.");
            break;
        case NS_DIRECTORY::SAFE_RET_NOT_UNDONE:
            throw std::runtime_error("a file is broken, and its copy cannot be put back now");
        default:
            break;
    }
}

}  // namespace

void EnterFolder(const std::string& strFolder, const std::string& strCopyFolder)
{
    // The library works on a folder relative to the working directory, and does not make it.
    std::filesystem::create_directories(std::filesystem::path(strFolder) / NS_DIRECTORY::DATA_DIR);
    std::filesystem::current_path(strFolder);
    std::filesystem::create_directories(strCopyFolder);
}

CContactLocalManager& StartGuarded(CSafeCopy& safe, double& dMilliseconds)
{
    Restore(safe);
    const auto begin = std::chrono::steady_clock::now();
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    dMilliseconds =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    if (pDirectory == nullptr) {
        throw std::runtime_error("there is no memory for the directory");
    }
    if (safe.Keep() < 0) {
        PrintText("No safe copy can be made: the telephone takes no changes.");
    }
    return *pDirectory;
}

}  // namespace desk_phone
