#include "app/pane/save_text_file_win32.h"

#include <commdlg.h>

#include <string>

#include "base/library_win32.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

constexpr DWORD maxPath = 32'768;  // the maximum path length of Windows

// Returns false if the user cancels the dialog. The dialog's library is loaded here, because
// linking it would cost some milliseconds at every start.
bool askForPath(OPENFILENAMEW& request) {
    const HMODULE dialogs = loadSystemLibrary(L"comdlg32.dll");
    const auto ask = findProcedure<decltype(&GetSaveFileNameW)>(dialogs, "GetSaveFileNameW");
    const auto errorOf =
        findProcedure<decltype(&CommDlgExtendedError)>(dialogs, "CommDlgExtendedError");
    if (!ask || !errorOf) throwLastError("LoadLibrary of comdlg32");
    if (ask(&request)) return true;
    if (const DWORD error = errorOf(); error != 0)
        throw RuntimeFailure(Fault::Platform, "The dialog that asks for a file has failed: error " +
                                                  std::to_string(error));
    return false;
}

[[noreturn]] void failToSave(const wchar_t* path) {
    const DWORD error = GetLastError();
    wchar_t reason[512]{};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                   reason, ARRAYSIZE(reason), nullptr);
    throw RuntimeFailure(Fault::Platform,
                         "The file " + narrow(path) + " could not be written. " + narrow(reason));
}

}  // namespace

void saveTextFile(HWND owner, const wchar_t* suggestedName, std::string_view text) {
    std::wstring path(suggestedName);
    path.resize(maxPath);
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = L"Text files (*.txt)\0*.txt\0All files\0*.*\0";
    request.lpstrFile = path.data();
    request.nMaxFile = maxPath;
    request.lpstrDefExt = L"txt";
    request.lpstrTitle = L"Save all addresses";
    request.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (askForPath(request)) writeTextFile(path.c_str(), text);
}

void writeTextFile(const wchar_t* path, std::string_view text) {
    // Tries further names for the partial file, because the user may have a file with the first
    // name.
    constexpr int maxTries = 100;
    std::wstring partial;
    HANDLE opened = INVALID_HANDLE_VALUE;
    for (int i = 1; i <= maxTries; ++i) {
        partial = std::wstring(path) + L".part" + (i == 1 ? L"" : std::to_wstring(i));
        opened = CreateFileW(partial.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
        if (opened != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) break;
    }
    if (opened == INVALID_HANDLE_VALUE) failToSave(path);
    OwnedHandle file(opened);
    DWORD written = 0;
    const auto size = static_cast<DWORD>(text.size());
    bool complete = WriteFile(file.get(), text.data(), size, &written, nullptr) && written == size;
    file.reset();
    complete = complete && MoveFileExW(partial.c_str(), path, MOVEFILE_REPLACE_EXISTING);
    if (complete) return;
    const DWORD error = GetLastError();
    DeleteFileW(partial.c_str());
    SetLastError(error);
    failToSave(path);
}

}  // namespace velvox
