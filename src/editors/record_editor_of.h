#pragma once

#include <cstdint>

#include "editors/record_editor.h"

namespace snippetarium {

/// The editing of a record of one kind.
template <typename RecordType>
class RecordEditorOf final : public RecordEditor {
  public:
    /// Of a new record; to be taken from the functions beside the record's editor.
    RecordEditorOf(Database& db, const NoiseWords& noise, RecordType record);

    /// As the user has it.
    RecordType& Record() { return record_; }
    const RecordType& Record() const { return record_; }

    bool IsChanged() const override;

  private:
    RecordType loaded_;
    RecordType record_;
};

}  // namespace snippetarium
