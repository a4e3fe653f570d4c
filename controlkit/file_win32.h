// clsFile: lists drives, folders and files.
#pragma once

#include <string_view>

#include "base/owned_win32.h"
#include "controlkit/fast_collection.h"
#include "controlkit/file_name.h"
#include "controlkit/list_item.h"

namespace velvox {

/// Paths may have any length and names any characters: the prefix "\\?\" is added internally where
/// it is needed. A relative path starts at the current folder.
///
/// An item has the name as `text` and the full path as `key`, which is also its key in the
/// collection and can be passed to these functions. A name that is not valid UTF-16 is listed with
/// U+FFFD and without a key, because its path cannot be written as UTF-8. Items have no icon,
/// because `GetIcon` takes long for many files.
class clsFile {
 public:
    using Items = clsFastCollection<tsListItem>;

    /// Lists the files of a folder, also hidden ones, whose names match `pattern` (see
    /// `matchesPattern`), in the system's order. A link to a file counts as a file. Subfolders are
    /// not visited. Throws Platform if the folder cannot be read completely.
    static Items EnumFiles(std::string_view folder, std::string_view pattern = "*");

    /// Lists the subfolders of a folder, without "." and "..". They have size 0; a link to a folder
    /// counts as a folder. Throws as EnumFiles does.
    static Items EnumFolders(std::string_view folder);

    /// Lists the roots of all drives, such as "C:\". A fixed drive has its capacity as size. Other
    /// drives have size 0, because they may be empty or remote.
    static Items EnumDrives();

    enum class IconSize { Small, Large };

    /// Returns the icon that the system shows for a file, folder or drive. If the path does not
    /// exist or is too long for the system, returns the icon of all files with its extension, or of
    /// all folders. Null if the system has no icon. COM must be initialised.
    static OwnedIcon GetIcon(std::string_view path, IconSize size = IconSize::Small);

    /// See `fileExtension`.
    static std::string_view GetFileExtension(std::string_view path) { return fileExtension(path); }
};

}  // namespace velvox
