// Loaded before a program, this fails its n-th allocation or its n-th system call that writes, or reads what lies below
// a folder, or sends it a signal there. What the loader does before `main` is not counted. The environment says which:
//
//     FAULT_AT      n, counted from 1
//     FAULT_WHAT    allocation, output or input
//     FAULT_HOW     once, always (this one and all that follow), short (half is written, and the next fails)
//                   before, after (the signal comes then, and the call is made)
//     FAULT_NUMBER  the errno of a call that fails, or the signal
//     FAULT_FOLDER  what input means by its beginning
//
// Descriptor 3 takes a line "fault CALL LIBRARY..." when it comes to it, with the libraries on the stack from the
// inside out, and a line "count N" at the program's end.

#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
}

namespace {

using Arguments = std::array<long, 6>;
using MainFunction = int (*)(int, char**, char**);

enum class What { None, Allocation, Output, Input };
enum class How { Once, Always, Short, Before, After };

constexpr int kReport = 3;
constexpr std::size_t kMostFiles = 1024;

What gWhat = What::None;
How gHow = How::Once;
long gAt = 0;
int gNumber = 0;
std::string_view gFolder;
MainFunction gpMain = nullptr;
std::atomic<bool> gIsCounting = false;
std::atomic<long> gCount = 0;
std::array<std::atomic<bool>, kMostFiles> gIsWatched;  ///< by descriptor

long Call(long number, const Arguments& with) {
    return syscall(number, with[0], with[1], with[2], with[3], with[4], with[5]);
}

void Write(std::string_view text) {
    Call(SYS_write, {kReport, reinterpret_cast<long>(text.data()), static_cast<long>(text.size())});
}

/// Takes no memory.
void Report(const char* call) {
    Write("fault ");
    Write(call);
    std::array<void*, 64> frames;
    const int depth = backtrace(frames.data(), static_cast<int>(frames.size()));
    std::string_view last;
    for (int frame = 0; frame < depth; ++frame) {
        Dl_info info{};
        if (!dladdr(frames[static_cast<std::size_t>(frame)], &info) || !info.dli_fname) continue;
        const char* slash = std::strrchr(info.dli_fname, '/');
        const std::string_view name = slash ? slash + 1 : info.dli_fname;
        if (name == last) continue;
        Write(" ");
        Write(last = name);
    }
    Write("\n");
}

/// Whether the fault comes now.
bool Comes(const char* call) {
    if (!gIsCounting) return false;
    const long count = ++gCount;
    if (count == gAt) {
        gIsCounting = false;
        Report(call);
        gIsCounting = gHow == How::Always || gHow == How::Short;
    }
    return count == gAt || (count > gAt && gHow == How::Always && gAt > 0);
}

bool FailsAllocation() {
    if (gWhat != What::Allocation || !Comes("allocation")) return false;
    if (gHow == How::Before) {
        raise(gNumber);
        return false;
    }
    errno = ENOMEM;
    return true;
}

// ---- system calls

struct WatchedCall {
    const char* fpName;
    long fNumber;
    enum Kind { Open, OpenAt, OnFile, OnPath } fKind;
};

constexpr WatchedCall kOutput[] = {
    {"open", SYS_open, WatchedCall::Open},
    {"openat", SYS_openat, WatchedCall::OpenAt},
    {"write", SYS_write, WatchedCall::OnFile},
    {"writev", SYS_writev, WatchedCall::OnFile},
    {"pwrite", SYS_pwrite64, WatchedCall::OnFile},
    {"fsync", SYS_fsync, WatchedCall::OnFile},
    {"close", SYS_close, WatchedCall::OnFile},
    {"fdatasync", SYS_fdatasync, WatchedCall::OnFile},
    {"fchmod", SYS_fchmod, WatchedCall::OnFile},
    {"ftruncate", SYS_ftruncate, WatchedCall::OnFile},
    {"rename", SYS_rename, WatchedCall::OnPath},
    {"renameat", SYS_renameat, WatchedCall::OnPath},
    {"renameat2", SYS_renameat2, WatchedCall::OnPath},
    {"link", SYS_link, WatchedCall::OnPath},
    {"linkat", SYS_linkat, WatchedCall::OnPath},
    {"mkdir", SYS_mkdir, WatchedCall::OnPath},
    {"mkdirat", SYS_mkdirat, WatchedCall::OnPath},
    {"memfd_create", SYS_memfd_create, WatchedCall::OnPath},
};

constexpr WatchedCall kInput[] = {
    {"open", SYS_open, WatchedCall::Open},     {"openat", SYS_openat, WatchedCall::OpenAt},
    {"read", SYS_read, WatchedCall::OnFile},   {"pread", SYS_pread64, WatchedCall::OnFile},
    {"readv", SYS_readv, WatchedCall::OnFile}, {"close", SYS_close, WatchedCall::OnFile},
};

const WatchedCall* Find(long number) {
    for (const WatchedCall& call : kOutput) {
        if (gWhat == What::Output && call.fNumber == number) return &call;
    }
    for (const WatchedCall& call : kInput) {
        if (gWhat == What::Input && call.fNumber == number) return &call;
    }
    return nullptr;
}

std::atomic<bool>* WatchOf(long file) {
    return file >= 0 && file < static_cast<long>(kMostFiles) && file != STDERR_FILENO && file != kReport
               ? &gIsWatched[static_cast<std::size_t>(file)]
               : nullptr;
}

bool IsWatched(const WatchedCall& call, const Arguments& with) {
    if (call.fKind == WatchedCall::OnPath) return true;
    if (call.fKind == WatchedCall::OnFile) {
        const auto* watch = WatchOf(with[0]);
        return watch && *watch;
    }
    const bool isAt = call.fKind == WatchedCall::OpenAt;
    const std::string_view path = reinterpret_cast<const char*>(with[isAt ? 1 : 0]);
    const bool writes = (with[isAt ? 2 : 1] & O_ACCMODE) != O_RDONLY;
    return gWhat == What::Output ? writes : path.starts_with(gFolder);
}

/// What the system answers, with the errno below zero.
long MakeCall(const WatchedCall& call, const Arguments& with) {
    const long answer = Call(call.fNumber, with);
    return answer < 0 ? -errno : answer;
}

/// The same for one that is watched, and so is the file that it opens.
long MakeWatched(const WatchedCall& call, const Arguments& with) {
    const long answer = MakeCall(call, with);
    const bool isOpen = call.fKind == WatchedCall::Open || call.fKind == WatchedCall::OpenAt;
    if (auto* watch = isOpen || call.fNumber == SYS_memfd_create ? WatchOf(answer) : nullptr) *watch = true;
    return answer;
}

long Answer(const WatchedCall& call, Arguments with) {
    if (!IsWatched(call, with)) return MakeCall(call, with);
    const bool comes = Comes(call.fpName);
    if (auto* watch = call.fNumber == SYS_close ? WatchOf(with[0]) : nullptr) *watch = false;
    if (comes && gHow == How::Short && call.fNumber == SYS_write) {
        with[2] = (with[2] + 1) / 2;
        return MakeWatched(call, with);
    }
    const bool isNext = gHow == How::Short && gCount == gAt + 1 && gIsCounting;
    if (comes && gHow == How::Before) raise(gNumber);
    if ((comes && gHow <= How::Short) || isNext) {
        if (call.fNumber == SYS_close) Call(SYS_close, with);  // it is closed all the same
        return -gNumber;
    }
    const long answer = MakeWatched(call, with);
    if (comes && gHow == How::After) raise(gNumber);
    return answer;
}

void HandleCall(int, siginfo_t* info, void* context) {
    const int before = errno;
    greg_t* registers = static_cast<ucontext_t*>(context)->uc_mcontext.gregs;
    const Arguments with{registers[REG_RDI], registers[REG_RSI], registers[REG_RDX],
                         registers[REG_R10], registers[REG_R8],  registers[REG_R9]};
    registers[REG_RAX] = Answer(*Find(info->si_syscall), with);
    errno = before;
}

/// The system sends SIGSYS for the calls that are watched, unless they are made by the C library's `syscall`.
void WatchCalls() {
    struct sigaction action {};
    action.sa_sigaction = HandleCall;
    action.sa_flags = SA_SIGINFO | SA_NODEFER;
    sigaction(SIGSYS, &action, nullptr);

    const auto from = reinterpret_cast<std::uintptr_t>(&syscall);
    const auto low = static_cast<std::uint32_t>(from);
    const auto high = static_cast<std::uint32_t>(from >> 32U);
    constexpr std::uint32_t kLength = 64;
    std::array<sock_filter, 64> program{};
    std::size_t size = 0;
    const auto add = [&](std::uint32_t code, std::uint32_t value, std::size_t ifTrue = 0, std::size_t ifFalse = 0) {
        program[size++] = {static_cast<std::uint16_t>(code), static_cast<std::uint8_t>(ifTrue),
                           static_cast<std::uint8_t>(ifFalse), value};
    };
    const WatchedCall* const first = gWhat == What::Output ? std::begin(kOutput) : std::begin(kInput);
    const WatchedCall* const last = gWhat == What::Output ? std::end(kOutput) : std::end(kInput);
    add(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr));
    for (const WatchedCall* call = first; call < last; ++call) {
        add(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call->fNumber),
            static_cast<std::size_t>(last - call));
    }
    add(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    add(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, instruction_pointer) + 4);
    add(BPF_JMP | BPF_JEQ | BPF_K, high, 0, 3);
    add(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, instruction_pointer));
    add(BPF_JMP | BPF_JGE | BPF_K, low, 0, 1);
    add(BPF_JMP | BPF_JGE | BPF_K, low + kLength, 0, 1);
    add(BPF_RET | BPF_K, SECCOMP_RET_TRAP);
    add(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    const sock_fprog filter{static_cast<unsigned short>(size), program.data()};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0) {
        Write("no filter\n");
        _exit(125);
    }
}

// ---- the begin

std::string_view Get(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

void ReadEnvironment() {
    const std::string_view what = Get("FAULT_WHAT");
    const std::string_view how = Get("FAULT_HOW");
    gAt = std::atol(Get("FAULT_AT").data());
    gNumber = std::atoi(Get("FAULT_NUMBER").data());
    gFolder = Get("FAULT_FOLDER");
    gWhat = what == "allocation" ? What::Allocation : what == "output" ? What::Output : What::Input;
    gHow = how == "always"   ? How::Always
           : how == "short"  ? How::Short
           : how == "before" ? How::Before
           : how == "after"  ? How::After
                             : How::Once;
}

int Main(int count, char** arguments, char** environment) {
    ReadEnvironment();
    std::array<void*, 4> frames;
    backtrace(frames.data(), static_cast<int>(frames.size()));  // loads what it needs
    gIsWatched[STDIN_FILENO] = gWhat == What::Input;
    gIsWatched[STDOUT_FILENO] = gWhat == What::Output;
    if (gWhat != What::Allocation) WatchCalls();
    gIsCounting = true;
    return gpMain(count, arguments, environment);
}

struct AtTheEnd {
    ~AtTheEnd() {
        gIsCounting = false;
        std::array<char, 32> line;
        const int size = std::snprintf(line.data(), line.size(), "count %ld\n", gCount.load());
        Write({line.data(), static_cast<std::size_t>(size)});
    }
} const gAtTheEnd;

}  // namespace

extern "C" {

void* malloc(std::size_t size) { return FailsAllocation() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) { return FailsAllocation() ? nullptr : __libc_calloc(count, size); }
void* realloc(void* memory, std::size_t size) { return FailsAllocation() ? nullptr : __libc_realloc(memory, size); }
void* memalign(std::size_t alignment, std::size_t size) {
    return FailsAllocation() ? nullptr : __libc_memalign(alignment, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    void* const made = memalign(alignment, size);
    if (!made) return ENOMEM;
    *memory = made;
    return 0;
}

int __libc_start_main(MainFunction main, int count, char** arguments, void (*initialize)(), void (*finish)(),
                      void (*finishLoader)(), void* stack) {
    using Start = int (*)(MainFunction, int, char**, void (*)(), void (*)(), void (*)(), void*);
    const auto start = reinterpret_cast<Start>(dlsym(RTLD_NEXT, "__libc_start_main"));
    gpMain = main;
    return start(Main, count, arguments, initialize, finish, finishLoader, stack);
}
}
