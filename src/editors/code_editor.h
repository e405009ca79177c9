#pragma once

#include <memory>

#include "editors/code_record.h"
#include "editors/record_editor_of.h"

namespace snippetarium {

/// The editing of a procedure; its record is a CodeRecord.
using CodeEditor = RecordEditorOf<CodeRecord>;
extern template class RecordEditorOf<CodeRecord>;

/// A new procedure in a class (0: the undefined one), in that class's language. `db` and `noise`
/// outlive the editor.
std::unique_ptr<CodeEditor> NewCodeEditor(Database& db, const NoiseWords& noise,
                                          std::int32_t classID);
/// Null where there is no such procedure, and on a failure.
std::unique_ptr<CodeEditor> OpenCodeEditor(Database& db, const NoiseWords& noise,
                                           std::int32_t codeID);

}  // namespace snippetarium
