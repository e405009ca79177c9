#pragma once

#include <cstdint>
#include <optional>

#include "editors/record_editor.h"

namespace snippetarium {

/// The editing of a record of one kind.
template <typename RecordType>
class RecordEditorOf final : public RecordEditor {
  public:
    /// Of a new record, which starts as this one, or of a stored one as it was loaded. Windows take
    /// editors from the functions beside each kind of record.
    RecordEditorOf(Database& db, const NoiseWords& noise, const RecordType& record);

    /// As the user has it. Its ID is the editor's business.
    RecordType& Record() { return record_; }
    const RecordType& Record() const { return record_; }

  private:
    FieldTexts LoadedTexts() const override;
    FieldTexts RecordTexts() const override;
    void TakeTexts(const FieldTexts& loaded, const FieldTexts& texts) override;
    std::optional<FieldTexts> StoredTexts() const override;
    void ForgetStored() override;
    bool IsRecordChanged() const override { return record_ != loaded_; }
    bool ConfirmLosses() override;
    bool CheckRecord() override;
    std::int32_t RecordID() const override;
    bool StoreRecord() override;
    NodeIDs LoadedPlace() const override;
    NodeIDs RecordPlace() const override;

    RecordType loaded_;
    RecordType record_;
};

}  // namespace snippetarium
