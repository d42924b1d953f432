// The device services of a workstation.

#include <fcntl.h>
#include <linux/fb.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstring>

#include "platform/device_services.h"
#include "platform/host/screen_colours.h"
#include "tests/support/directory_test.h"

using platform_host::HasColours;

namespace {

int g_nStatError = 0;                          // what every stat fails with; 0: none fails
const fb_var_screeninfo* g_pScreen = nullptr;  // what a frame buffer answers; null: nothing

constexpr time_t YEAR_2040 = 2208988800;

}  // namespace

extern "C" {

int stat(const char* path, struct stat* info) noexcept
{
    errno = g_nStatError;
    return g_nStatError != 0 ? -1 : fstatat(AT_FDCWD, path, info, 0);
}

int ioctl(int file, unsigned long request, ...) noexcept
{
    std::va_list arguments;
    va_start(arguments, request);
    void* const pAnswer = va_arg(arguments, void*);
    va_end(arguments);
    if (request == FBIOGET_VSCREENINFO && g_pScreen != nullptr) {
        std::memcpy(pAnswer, g_pScreen, sizeof(*g_pScreen));
        return 0;
    }
    return static_cast<int>(syscall(SYS_ioctl, file, request, pAnswer));
}
}

namespace {

class WorkstationTest : public DirectoryTest
{
  protected:
    void TearDown() override
    {
        g_nStatError = 0;
        g_pScreen = nullptr;
        DirectoryTest::TearDown();
    }

    static void Date2040(const char* pPath)
    {
        const timespec times[] = {{YEAR_2040, 0}, {YEAR_2040, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, pPath, times, 0), 0) << pPath;
    }
};

TEST_F(WorkstationTest, OnlyWhatTheSystemCallsAbsentIsAbsent)
{
    WriteFile("file", "");
    Date2040("file");
    std::filesystem::create_directory("folder");
    Date2040("folder");
    std::filesystem::create_symlink("nothing", "link");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    for (const auto& [pPath, nAnswer] : std::vector<std::pair<const char*, int>>{
             {"file", 1}, {"pipe", 1}, {"folder", 0}, {"link", 0}, {"file/below", 0}, {"", 0}}) {
        EXPECT_EQ(ZMK_MiscHelper::pathFileExist(pPath), nAnswer) << pPath;
    }
    for (const int nError : {ENOENT, ENOTDIR, EACCES, EIO, ELOOP, ENOMEM, EOVERFLOW}) {
        g_nStatError = nError;
        EXPECT_EQ(ZMK_MiscHelper::pathFileExist("file"), nError != ENOENT && nError != ENOTDIR)
            << strerror(nError);
    }
}

TEST_F(WorkstationTest, TheFrameBufferIsAskedBeforeItsDepth)
{
    WriteFile("fb0", "");
    for (const auto& [pDepth, bColours] : std::vector<std::pair<const char*, bool>>{
             {"1\n", false}, {"8\n", true}, {"32\n", true}, {"none\n", true}}) {
        WriteFile("depth", pDepth);
        EXPECT_EQ(HasColours("fb0", "depth"), bColours) << "no frame buffer: " << pDepth;
    }
    EXPECT_TRUE(HasColours("no_fb0", "no_depth"));
    struct Row
    {
        unsigned int m_nBits, m_nGrey;
        bool m_bColours;
    };
    WriteFile("depth", "1\n");
    for (const auto& [nBits, nGrey, bColours] :
         {Row{32, 0, true}, {16, 0x34324742, true}, {8, 1, false}, {1, 0, false}}) {
        fb_var_screeninfo screen{};
        screen.bits_per_pixel = nBits;
        screen.grayscale = nGrey;
        g_pScreen = &screen;
        EXPECT_EQ(HasColours("fb0", "depth"), bColours) << nBits << " bits, grey " << nGrey;
        g_pScreen = nullptr;
    }
}

}  // namespace
