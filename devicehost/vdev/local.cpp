#include "devicehost/vdev/local.h"

#include "devicehost/vdev/path_tree.h"
#include "devicehost/vdev/posix_file.h"

#include <cerrno>
#include <utility>

namespace devicehost
{

namespace
{

class LocalDevice final : public VDev
{
public:
    explicit LocalDevice(PathTree below) : tree(std::move(below)) { isLocal = true; }

    std::unique_ptr<VFile> openFile(const char *path, int mode, Error *error) override
    {
        UniqueFd file = mode == 0 ? tree.openForReading(path, error) : tree.openForWriting(path, error);
        return file ? std::make_unique<PosixFile>(std::move(file)) : nullptr;
    }

    int createDir(const char *path) override { return tree.createFolder(path); }

private:
    PathTree tree;
};

} // namespace

std::unique_ptr<VDev> openLocalDevice(const char *root, VError *error)
{
    PathTree tree = *root == '\0' ? PathTree::wholeSystem() : PathTree::below(root, error);
    return tree.valid() ? std::make_unique<LocalDevice>(std::move(tree)) : nullptr;
}

} // namespace devicehost
