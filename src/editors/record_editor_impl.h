#pragma once

#include "editors/record_editor_of.h"
#include "store/database.h"

namespace snippetarium {

// The bodies of RecordEditorOf. The file of each kind of record includes them, once it has told by
// a RecordKind what is its own:
//
//     template <>
//     struct RecordKind<ClassRecord> {
//         static constexpr OwnerKind kKind = OwnerKind::Class;
//         /// What a draft keeps; the ID is not among them.
//         static constexpr RecordField<ClassRecord> kFields[] = {...};
//         static constexpr auto kID = &ClassRecord::classID;
//         static constexpr auto kLoad = &LoadClassRecord;
//         static constexpr auto kCheck = &CheckClassRecord;
//         static constexpr auto kStore = &StoreClassRecord;
//
//         static NodeIDs Place(Database& db, const ClassRecord& record);
//         /// Asks the user before anything is lost of what is stored, or of what he entered.
//         static bool ConfirmLosses(Database& db, ClassRecord& record, const ClassRecord& stored);
//     };
template <typename RecordType>
struct RecordKind;

template <typename RecordType>
std::span<const RecordField<RecordType>> FieldsOf() {
    return RecordKind<RecordType>::kFields;
}

template <typename RecordType>
RecordEditorOf<RecordType>::RecordEditorOf(Database& db, const NoiseWords& noise,
                                           const RecordType& record)
    : RecordEditor(db, noise, {RecordKind<RecordType>::kKind, record.*RecordKind<RecordType>::kID}),
      loaded_(record),
      record_(record) {}

template <typename RecordType>
FieldTexts RecordEditorOf<RecordType>::LoadedTexts() const {
    return TextsOf(loaded_, FieldsOf<RecordType>());
}

template <typename RecordType>
FieldTexts RecordEditorOf<RecordType>::RecordTexts() const {
    return TextsOf(record_, FieldsOf<RecordType>());
}

template <typename RecordType>
void RecordEditorOf<RecordType>::TakeTexts(const FieldTexts& loaded, const FieldTexts& texts) {
    SetTexts(loaded_, FieldsOf<RecordType>(), loaded);
    SetTexts(record_, FieldsOf<RecordType>(), texts);
}

template <typename RecordType>
std::optional<FieldTexts> RecordEditorOf<RecordType>::StoredTexts() const {
    const auto stored = RecordKind<RecordType>::kLoad(Catalogue(), ID());
    if (!stored) return std::nullopt;
    return TextsOf(*stored, FieldsOf<RecordType>());
}

template <typename RecordType>
void RecordEditorOf<RecordType>::ForgetStored() {
    loaded_ = {};
    record_.*RecordKind<RecordType>::kID = 0;
}

template <typename RecordType>
bool RecordEditorOf<RecordType>::ConfirmLosses() {
    return RecordKind<RecordType>::ConfirmLosses(Catalogue(), record_, loaded_);
}

template <typename RecordType>
bool RecordEditorOf<RecordType>::CheckRecord() {
    return RecordKind<RecordType>::kCheck(Catalogue(), record_);
}

template <typename RecordType>
std::int32_t RecordEditorOf<RecordType>::RecordID() const {
    return record_.*RecordKind<RecordType>::kID;
}

template <typename RecordType>
bool RecordEditorOf<RecordType>::StoreRecord() {
    if (!RecordKind<RecordType>::kStore(Catalogue(), record_)) return false;
    loaded_ = record_;
    return true;
}

template <typename RecordType>
NodeIDs RecordEditorOf<RecordType>::LoadedPlace() const {
    return RecordKind<RecordType>::Place(Catalogue(), loaded_);
}

template <typename RecordType>
NodeIDs RecordEditorOf<RecordType>::RecordPlace() const {
    return RecordKind<RecordType>::Place(Catalogue(), record_);
}

/// An editor of what is stored under this ID; null where nothing is.
template <typename RecordType>
std::unique_ptr<RecordEditorOf<RecordType>> OpenRecordEditor(Database& db, const NoiseWords& noise,
                                                             std::int32_t id) {
    const auto record = RecordKind<RecordType>::kLoad(db, id);
    if (!record) return nullptr;
    return std::make_unique<RecordEditorOf<RecordType>>(db, noise, *record);
}

}  // namespace snippetarium
