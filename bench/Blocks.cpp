// SPDX-License-Identifier: Apache-2.0
// A plugin of the emulator. At each mark that the emulated program sets, it writes the blocks of instructions
// that the program has executed since the last mark, one on each line: address, number of instructions,
// executions.
//
//     qemu-arm -plugin libblocks.so,out=PATH PROGRAM
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>

#include "Mark.h"

// The emulator's own functions. Debian has no header of them.
extern "C" {
using PluginId = uint64_t;
struct PluginBlock;
struct PluginInfo;
enum PluginOperation { kAdd = 0 };
using OnTranslation = void (*)(PluginId id, PluginBlock* block);
using OnCall = void (*)(PluginId id, unsigned thread, int64_t number, uint64_t a, uint64_t b, uint64_t c,
                        uint64_t d, uint64_t e, uint64_t f, uint64_t g, uint64_t h);
void qemu_plugin_register_vcpu_tb_trans_cb(PluginId id, OnTranslation then);
void qemu_plugin_register_vcpu_syscall_cb(PluginId id, OnCall then);
void qemu_plugin_register_vcpu_tb_exec_inline(PluginBlock* block, PluginOperation operation, void* counter,
                                              uint64_t by);
size_t qemu_plugin_tb_n_insns(const PluginBlock* block);
uint64_t qemu_plugin_tb_vaddr(const PluginBlock* block);
}

namespace {

struct Block {
    uint64_t address;
    size_t instructions;
    uint64_t executions;  // the emulator counts here
};

// A block that is translated again gets another element. References to elements stay valid.
std::deque<Block> gBlocks;
FILE* gOutput = nullptr;

void watch(PluginId /*id*/, PluginBlock* block) {
    gBlocks.push_back({qemu_plugin_tb_vaddr(block), qemu_plugin_tb_n_insns(block), 0});
    qemu_plugin_register_vcpu_tb_exec_inline(block, kAdd, &gBlocks.back().executions, 1);
}

void writeAtMark(PluginId /*id*/, unsigned /*thread*/, int64_t /*number*/, uint64_t mark, uint64_t /*b*/,
                 uint64_t /*c*/, uint64_t /*d*/, uint64_t /*e*/, uint64_t /*f*/, uint64_t /*g*/,
                 uint64_t /*h*/) {
    if (mark != qz::bench::kMark) return;
    for (Block& block : gBlocks) {
        if (block.executions == 0) continue;
        std::fprintf(gOutput, "%" PRIx64 " %zu %" PRIu64 "\n", block.address, block.instructions,
                     block.executions);
        block.executions = 0;
    }
    std::fprintf(gOutput, "\n");
    std::fflush(gOutput);
}

}  // namespace

extern "C" {
__attribute__((visibility("default"))) extern const int qemu_plugin_version;
const int qemu_plugin_version = 1;

__attribute__((visibility("default"))) int qemu_plugin_install(PluginId id, const PluginInfo* info, int count,
                                                               char** words);

int qemu_plugin_install(PluginId id, const PluginInfo* /*info*/, int count, char** words) {
    const bool named = count == 1 && std::strncmp(words[0], "out=", 4) == 0;
    gOutput = named ? std::fopen(words[0] + 4, "w") : nullptr;
    if (gOutput == nullptr) {
        std::fprintf(stderr, "libblocks: expected out=PATH, a file that can be written\n");
        return EXIT_FAILURE;
    }
    qemu_plugin_register_vcpu_tb_trans_cb(id, watch);
    qemu_plugin_register_vcpu_syscall_cb(id, writeAtMark);
    return 0;
}
}
