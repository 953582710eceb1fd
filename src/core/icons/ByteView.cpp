#include "core/icons/ByteView.h"

namespace tidewell {
namespace {

bool holds(std::size_t size, std::size_t offset, std::size_t length) {
    return offset <= size && length <= size - offset;
}

} // namespace

std::optional<std::string_view> ByteView::slice(std::size_t offset, std::size_t length) const {
    if (holds(start_.size(), offset, length))
        return start_.substr(offset, length);
    for (const Piece& piece : pieces_)
        if (offset >= piece.offset && holds(piece.bytes.size(), offset - piece.offset, length))
            return std::string_view(piece.bytes).substr(offset - piece.offset, length);
    return readPiece(offset, length);
}

std::optional<std::string_view> ByteView::readPiece(std::size_t offset, std::size_t length) const {
    const bool isPastEnd = fileEnd_ && (offset >= *fileEnd_ || length > *fileEnd_ - offset);
    if (!readMore_ || isPastEnd || length > pieceLength || reads_ == maximumReads)
        return std::nullopt;
    ++reads_;
    auto bytes = readMore_(offset, pieceLength);
    if (!bytes)
        return std::nullopt;
    if (bytes->size() < pieceLength)
        fileEnd_ = offset + bytes->size();
    const Piece& piece = pieces_.emplace_back(Piece{offset, std::move(*bytes)});
    if (!holds(piece.bytes.size(), 0, length))
        return std::nullopt;
    return std::string_view(piece.bytes).substr(0, length);
}

} // namespace tidewell
