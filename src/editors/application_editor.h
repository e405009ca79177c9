#pragma once

#include <memory>

#include "editors/application_record.h"
#include "editors/record_editor_of.h"

namespace snippetarium {

/// The editing of an application; its record is an ApplicationRecord.
using ApplicationEditor = RecordEditorOf<ApplicationRecord>;
extern template class RecordEditorOf<ApplicationRecord>;

/// `db` and `noise` outlive the editor.
std::unique_ptr<ApplicationEditor> NewApplicationEditor(Database& db, const NoiseWords& noise);
/// Null where there is no such application, and on a failure.
std::unique_ptr<ApplicationEditor> OpenApplicationEditor(Database& db, const NoiseWords& noise,
                                                         std::int32_t appID);

}  // namespace snippetarium
