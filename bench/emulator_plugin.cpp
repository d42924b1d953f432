// A plugin of QEMU's emulator of one program: counts the instructions between two marks. Debian
// ships the emulator without the header for plugins, so what is used of the interface, version 1,
// is declared here.

#include <unistd.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>

#include "bench/emulator_mark.h"

extern "C" {

struct qemu_plugin_tb;
using qemu_plugin_id_t = std::uint64_t;

std::size_t qemu_plugin_tb_n_insns(const qemu_plugin_tb* block);
void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t id,
                                           void (*call)(qemu_plugin_id_t, qemu_plugin_tb*));
void qemu_plugin_register_vcpu_tb_exec_inline(qemu_plugin_tb* block, int operation, void* target,
                                              std::uint64_t value);
void qemu_plugin_register_vcpu_syscall_cb(qemu_plugin_id_t id,
                                          void (*call)(qemu_plugin_id_t, unsigned int, std::int64_t,
                                                       std::uint64_t, std::uint64_t, std::uint64_t,
                                                       std::uint64_t, std::uint64_t, std::uint64_t,
                                                       std::uint64_t, std::uint64_t));
}

namespace {

constexpr int ADD = 0;

std::uint64_t g_nInstructions = 0;

// Each block of code adds its length whenever it runs.
void CountBlock(qemu_plugin_id_t, qemu_plugin_tb* pBlock)
{
    qemu_plugin_register_vcpu_tb_exec_inline(pBlock, ADD, &g_nInstructions,
                                             qemu_plugin_tb_n_insns(pBlock));
}

void SeeSystemCall(qemu_plugin_id_t, unsigned int, std::int64_t nCall, std::uint64_t nMark,
                   std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t,
                   std::uint64_t, std::uint64_t)
{
    if (nCall != MARK_SYSTEM_CALL) {
        return;
    }
    if (nMark == MARK_STOP) {
        dprintf(STDOUT_FILENO, "%" PRIu64 "\n", g_nInstructions);
    }
    g_nInstructions = 0;
}

}  // namespace

extern "C" {

extern const int qemu_plugin_version;
const int qemu_plugin_version = 1;

int qemu_plugin_install(qemu_plugin_id_t id, const void*, int, char**)
{
    qemu_plugin_register_vcpu_tb_trans_cb(id, &CountBlock);
    qemu_plugin_register_vcpu_syscall_cb(id, &SeeSystemCall);
    return 0;
}
}
