#ifndef APPS_CLI_OUTPUT_LABELLED_LINE_H
#define APPS_CLI_OUTPUT_LABELLED_LINE_H

#include "apps/cli/output/output.h"

namespace photocli
{

/// Writes one line: the label, padded to `labelWidth` cells, and the text, made harmless for terminals.
void printLabelled(Output &out, const QString &label, int labelWidth, const QString &text);

} // namespace photocli

#endif
