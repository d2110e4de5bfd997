#include "devicehost/vdev/folder.h"

#include "devicehost/vdev/path_tree.h"
#include "devicehost/vdev/posix_file.h"

#include <cerrno>
#include <utility>

namespace devicehost
{

namespace
{

class FolderDevice final : public VDev
{
public:
    explicit FolderDevice(PathTree below) : tree(std::move(below)) {}

    std::unique_ptr<VFile> openFile(const char *path, int mode, Error *error) override
    {
        if (mode != 0) {
            *error = errnoError(EROFS);
            return nullptr;
        }
        UniqueFd file = tree.openForReading(path, error);
        return file ? std::make_unique<PosixFile>(std::move(file)) : nullptr;
    }

private:
    PathTree tree;
};

} // namespace

std::unique_ptr<VDev> openFolderDevice(const char *root, VError *error)
{
    PathTree tree = PathTree::below(root, error);
    return tree.valid() ? std::make_unique<FolderDevice>(std::move(tree)) : nullptr;
}

} // namespace devicehost
