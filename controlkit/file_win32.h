// clsFile: drives, folders and files of the system.
#pragma once

#include <string_view>

#include "base/owned_win32.h"
#include "controlkit/fast_collection.h"
#include "controlkit/file_name.h"
#include "controlkit/list_item.h"

namespace velvox {

/// Paths may be of any length, and names have any characters: "\\?\" is added where it is needed,
/// and does not show. A relative path counts from the current folder.
///
/// Items have the name as `text` and the full path as `key`, also as the collection's key, for
/// the next call. A name that is not valid UTF-16 is listed with U+FFFD in it and no key: no text
/// names its file. Items have no icon yet; `GetIcon` takes long for many files.
class clsFile {
 public:
    using Items = clsFastCollection<tsListItem>;

    /// The files of a folder whose names match (see `matchesPattern`), hidden ones too, in the
    /// system's order. Nothing below the folder is visited, so links in circles do no harm; a link
    /// to a file is a file. Throws Platform for a folder that cannot be read to its end.
    static Items EnumFiles(std::string_view folder, std::string_view pattern = "*");

    /// The folders in a folder, but for itself and its parent; a link to a folder is a folder.
    /// They have no size. Throws as EnumFiles does.
    static Items EnumFolders(std::string_view folder);

    /// The roots of all drives, such as "C:\". Fixed drives have their whole size; of others,
    /// which may be empty or far away, it is not asked for.
    static Items EnumDrives();

    enum class IconSize { Small, Large };

    /// The icon that the system shows for a file, folder or drive. Where it has none of its own, or
    /// its path is too long for the system or leads to nothing, that of its kind. Null where the
    /// system has none at all. COM must be initialised.
    static OwnedIcon GetIcon(std::string_view path, IconSize size = IconSize::Small);

    /// See `fileExtension`.
    static std::string_view GetFileExtension(std::string_view path) { return fileExtension(path); }
};

}  // namespace velvox
