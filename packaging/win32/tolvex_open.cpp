// SPDX-License-Identifier: MIT
// What a double-clicked .hex or .eep file is opened with: tolvex-open.exe FILE. The window program
// ignores arguments and takes the file from its environment, which Windows can't set for it.
#include <windows.h>

#include <string>

namespace {

/// tolvex.exe in the folder of this program.
std::wstring WindowProgram() {
    std::wstring path(32768, L'\0');  // the longest that Windows knows
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\') + 1) + L"tolvex.exe";
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const std::wstring program = WindowProgram();
    ::SetEnvironmentVariableW(L"TOLVEX_FILE", argc > 1 ? argv[1] : nullptr);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    if (!::CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &started)) {
        ::MessageBoxW(nullptr, (program + L"\n\ncan't be started.").c_str(), L"Tolvex",
                      MB_ICONERROR);
        return 1;
    }
    ::CloseHandle(started.hThread);
    ::CloseHandle(started.hProcess);
    return 0;
}
