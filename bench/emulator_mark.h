// How the program in the emulator speaks to the plugin that counts its instructions: by a system
// call that no kernel knows. Without the plugin it does nothing.

#ifndef NSDIRECTORY_BENCH_EMULATOR_MARK_H
#define NSDIRECTORY_BENCH_EMULATOR_MARK_H

inline constexpr long MARK_SYSTEM_CALL = 0x4e53;

enum : long
{
    MARK_START = 1,
    MARK_STOP = 2  // prints the count since the start, and ends the line
};

#endif  // NSDIRECTORY_BENCH_EMULATOR_MARK_H
