#ifndef APPS_CLI_STANDARD_STREAMS_H
#define APPS_CLI_STANDARD_STREAMS_H

namespace photocli
{

/// Prepares the process's descriptors 0 to 2 and its signals; call it first of all. A descriptor that the caller
/// closed would otherwise be given to the next file opened, and output would end up in the database copy. Writing to
/// a pipe that nobody reads becomes an error that is handled, not the end of the process.
void prepareStandardStreams();

} // namespace photocli

#endif
