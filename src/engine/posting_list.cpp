#include "engine/posting_list.h"

#include "engine/engine_error.h"

namespace snippetarium {

void NumberReader::ThrowDamaged() {
    throw EngineError(EngineErrorCode::Corrupted, "A list of the text index is cut off.");
}

std::string_view NumberReader::Take(std::size_t size) {
    if (size > bytes_.size() - position_) ThrowDamaged();
    const std::string_view taken = bytes_.substr(position_, size);
    position_ += size;
    return taken;
}

void AppendNumber(std::string& bytes, std::uint32_t number) {
    for (; number >= 0x80U; number >>= 7U)
        bytes += static_cast<char>(number | 0x80U);
    bytes += static_cast<char>(number);
}

std::string EncodePostings(std::span<const std::uint32_t> ids) {
    std::string postings;
    postings.reserve(ids.size() + 8);
    std::uint32_t previous = 0;
    for (const std::uint32_t id : ids) {
        AppendNumber(postings, id - previous);
        previous = id;
    }
    return postings;
}

void DecodePostings(std::string_view postings, std::uint32_t base,
                    std::vector<std::uint32_t>& ids) {
    NumberReader reader(postings);
    for (std::uint32_t id = base; !reader.IsAtEnd();) {
        id += reader.Next();
        ids.push_back(id);
    }
}

void AddPostings(std::string_view postings, std::uint32_t base, IdSet& ids) {
    NumberReader reader(postings);
    BlockMask* mask = nullptr;
    std::uint32_t block = 0;
    for (std::uint32_t id = base; !reader.IsAtEnd();) {
        id += reader.Next();
        if (mask == nullptr || id / kIDsInBlock != block) {
            block = id / kIDsInBlock;
            mask = &ids.At(static_cast<std::int32_t>(block));
        }
        (*mask)[id % kIDsInBlock] = true;
    }
}

}  // namespace snippetarium
