#pragma once

#include <memory>

#include "editors/class_record.h"
#include "editors/record_editor_of.h"

namespace snippetarium {

/// The editing of a class; its record is a ClassRecord.
using ClassEditor = RecordEditorOf<ClassRecord>;
extern template class RecordEditorOf<ClassRecord>;

/// A new class in an application (0: the undefined one), in the language of that application's
/// newest class. `db` and `noise` outlive the editor.
std::unique_ptr<ClassEditor> NewClassEditor(Database& db, const NoiseWords& noise,
                                            std::int32_t appID);
/// Null where there is no such class, and on a failure.
std::unique_ptr<ClassEditor> OpenClassEditor(Database& db, const NoiseWords& noise,
                                             std::int32_t classID);

}  // namespace snippetarium
