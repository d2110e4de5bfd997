#ifndef TESTS_BROWSER_VIEWER_SHARED_SAMPLE_H
#define TESTS_BROWSER_VIEWER_SHARED_SAMPLE_H

#include "tests/cli/sample/sample_folder.h"

/// One sample device for all tests of a program, which takes about a second to make.
inline SampleFolder &sharedSample()
{
    static SampleFolder folder;
    return folder;
}

#endif
