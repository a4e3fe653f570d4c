#include "controlkit/file_win32.h"

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <utility>

#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

void closeFind(HANDLE find) noexcept {
    FindClose(find);
}
using OwnedFind = Owned<HANDLE, &closeFind>;

/// Suppresses the system's message boxes about missing disks for the duration of a scope.
class NoDiskPrompts {
 public:
    NoDiskPrompts() noexcept { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &previous_); }
    NoDiskPrompts(const NoDiskPrompts&) = delete;
    NoDiskPrompts& operator=(const NoDiskPrompts&) = delete;
    ~NoDiskPrompts() { SetThreadErrorMode(previous_, nullptr); }

 private:
    DWORD previous_ = 0;
};

[[noreturn]] void throwUnreadable(std::string_view folder, DWORD error) {
    throw RuntimeFailure(Fault::Platform, "The folder \"" + std::string(folder) +
                                              "\" cannot be read: error " + std::to_string(error));
}

/// Whether a path is absolute and contains no ".", "..", slash or doubled backslash. Such a path is
/// not passed to GetFullPathNameW, which would remove dots and blanks from the ends of names.
bool isComplete(const std::wstring& path) {
    if (path.starts_with(LR"(\\?\)")) return true;
    const auto has = [&](const wchar_t* part) { return (path + L'\\').find(part, 2) != path.npos; };
    const bool rooted = path.find(LR"(:\)") == 1 || path.starts_with(LR"(\\)");
    return rooted && !has(L"/") && !has(LR"(\.\)") && !has(LR"(\..\)") && !has(LR"(\\)");
}

/// The full path of a folder, with a backslash at its end. On failure it is empty, and GetLastError
/// returns the reason.
std::wstring fullPath(std::string_view folder) {
    std::wstring path = widen(folder);
    // A null character would end the path early.
    if (path.find(L'\0') != path.npos) {
        SetLastError(ERROR_INVALID_NAME);
        return {};
    }
    if (!isComplete(path)) {
        const std::wstring given = std::exchange(path, std::wstring(MAX_PATH, L'\0'));
        for (bool fits = false; !fits;) {
            const DWORD length = GetFullPathNameW(given.c_str(), static_cast<DWORD>(path.size()),
                                                  path.data(), nullptr);
            fits = length < path.size();
            path.resize(length);
        }
    }
    if (!path.empty() && path.back() != L'\\') path += L'\\';
    return path;
}

/// Converts a full path to the form that the system does not limit to 260 characters.
std::wstring unlimited(const std::wstring& path) {
    if (path.starts_with(LR"(\\?\)") || path.starts_with(LR"(\\.\)")) return path;
    if (path.starts_with(LR"(\\)")) return LR"(\\?\UNC\)" + path.substr(2);
    return LR"(\\?\)" + path;
}

void add(clsFile::Items& items, const std::wstring& folder, const wchar_t* name,
         std::uint64_t size) {
    tsListItem item;
    item.text = narrow(name);
    if (widen(item.text) == name) item.key = narrow(folder) + item.text;
    item.size = size;
    const std::string key = item.key;
    // The system may list a name twice when the folder changes during the enumeration.
    if (items.contains(key)) return;
    items.Add(std::move(item), key);
}

bool isFolder(const WIN32_FIND_DATAW& found) {
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// The entries of a folder for which `accepts(entry)` returns true.
template <class Accepts>
clsFile::Items entries(std::string_view folder, Accepts accepts) {
    const NoDiskPrompts noPrompts;
    const std::wstring path = fullPath(folder);
    if (path.empty()) throwUnreadable(folder, GetLastError());
    clsFile::Items items;
    WIN32_FIND_DATAW found{};
    const HANDLE first = FindFirstFileW((unlimited(path) + L"*").c_str(), &found);
    // The root of an empty drive has no entries at all, not even ".".
    if (first == INVALID_HANDLE_VALUE) {
        if (const DWORD error = GetLastError(); error != ERROR_FILE_NOT_FOUND)
            throwUnreadable(folder, error);
        return items;
    }
    const OwnedFind find(first);
    do {
        const std::uint64_t size =
            (static_cast<std::uint64_t>(found.nFileSizeHigh) << 32) | found.nFileSizeLow;
        if (accepts(found)) add(items, path, found.cFileName, isFolder(found) ? 0 : size);
    } while (FindNextFileW(find.get(), &found));
    if (const DWORD error = GetLastError(); error != ERROR_NO_MORE_FILES)
        throwUnreadable(folder, error);
    return items;
}

}  // namespace

clsFile::Items clsFile::EnumFiles(std::string_view folder, std::string_view pattern) {
    return entries(folder, [&](const WIN32_FIND_DATAW& found) {
        return !isFolder(found) && matchesPattern(narrow(found.cFileName), pattern);
    });
}

clsFile::Items clsFile::EnumFolders(std::string_view folder) {
    return entries(folder, [](const WIN32_FIND_DATAW& found) {
        const std::wstring_view name = found.cFileName;
        return isFolder(found) && name != L"." && name != L"..";
    });
}

clsFile::Items clsFile::EnumDrives() {
    const NoDiskPrompts noPrompts;
    Items items;
    const DWORD drives = GetLogicalDrives();
    for (int i = 0; i < 26; ++i) {
        if ((drives >> i & 1) == 0) continue;
        const wchar_t root[] = {static_cast<wchar_t>(L'A' + i), L':', L'\\', L'\0'};
        ULARGE_INTEGER size{};
        if (GetDriveTypeW(root) == DRIVE_FIXED) GetDiskFreeSpaceExW(root, nullptr, &size, nullptr);
        add(items, {}, root, size.QuadPart);
    }
    return items;
}

OwnedIcon clsFile::GetIcon(std::string_view path, IconSize size) {
    const UINT wanted = SHGFI_ICON | (size == IconSize::Small ? SHGFI_SMALLICON : SHGFI_LARGEICON);
    const NoDiskPrompts noPrompts;
    SHFILEINFOW info{};
    const std::wstring plain = widen(path);
    if (plain.size() < MAX_PATH && SHGetFileInfoW(plain.c_str(), 0, &info, sizeof info, wanted))
        return OwnedIcon(info.hIcon);
    // fullPath() appends a backslash, with which the system finds only folders, no files.
    const DWORD found = GetFileAttributesW(unlimited(fullPath(path)).c_str());
    const DWORD kind = found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY)
                           ? FILE_ATTRIBUTE_DIRECTORY
                           : FILE_ATTRIBUTE_NORMAL;
    const std::wstring name = widen("x." + std::string(GetFileExtension(path)));
    SHGetFileInfoW(name.c_str(), kind, &info, sizeof info, wanted | SHGFI_USEFILEATTRIBUTES);
    return OwnedIcon(info.hIcon);
}

}  // namespace velvox
