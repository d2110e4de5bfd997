#ifndef APPS_CLI_OPTIONS_SELECTION_OPTIONS_H
#define APPS_CLI_OPTIONS_SELECTION_OPTIONS_H

#include "apps/cli/selection/selection.h"

#include <string>
#include <vector>

namespace CLI
{
class App;
}

namespace photocli
{

/// The options that choose photos, as given on the command line; the same for every subcommand that takes photos.
struct SelectionOptions {
    std::vector<std::string> albums, groups, uuids, fromDates, toDates;
    bool favorite = false, hidden = false, deleted = false, onlyPhotos = false, onlyMovies = false;
    std::string limit; ///< empty: none

    /// Throws a usage Failure for a malformed group, date or limit.
    SelectionRequest request() const;
};

/// Declares the options on a subcommand. `options` must outlive the parsing.
void addSelectionOptions(CLI::App &command, SelectionOptions &options);

} // namespace photocli

#endif
