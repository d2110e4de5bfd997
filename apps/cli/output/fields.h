#ifndef APPS_CLI_OUTPUT_FIELDS_H
#define APPS_CLI_OUTPUT_FIELDS_H

#include "photolib/photolib.h"

#include <variant>

namespace photocli
{

/// One field of a record: its name in every output, and where it is.
template <typename Record>
struct Field {
    const char *name;
    std::variant<qint32 Record::*, qint64 Record::*, double Record::*, QString Record::*, QByteArray Record::*,
                 QDateTime Record::*, QList<qint64> Record::*>
        member;
};

/// The fields of each record, in declaration order: the one table behind dump, --json, --csv and show.
inline constexpr Field<photoItem> photoFields[] = {
    {"id", &photoItem::id},
    {"entity", &photoItem::entity},
    {"uuid", &photoItem::uuid},
    {"fileName", &photoItem::fileName},
    {"mediaType", &photoItem::mediaType},
    {"directory", &photoItem::directory},
    {"metadataPath", &photoItem::metadataPath},
    {"orientation", &photoItem::orientation},
    {"height", &photoItem::height},
    {"width", &photoItem::width},
    {"duration", &photoItem::duration},
    {"fileSize", &photoItem::fileSize},
    {"dateCreated", &photoItem::dateCreated},
    {"modificationDate", &photoItem::modificationDate},
    {"trashedDate", &photoItem::trashedDate},
    {"trashedState", &photoItem::trashedState},
    {"avalancheUuid", &photoItem::avalancheUuid},
    {"avalanchePickType", &photoItem::avalanchePickType},
    {"sortToken", &photoItem::sortToken},
    {"visibilityState", &photoItem::visibilityState},
    {"faceAreaPoints", &photoItem::faceAreaPoints},
    {"favorite", &photoItem::favorite},
    {"kindSubtype", &photoItem::kindSubtype},
    {"latitude", &photoItem::latitude},
    {"longitude", &photoItem::longitude},
    {"duplicateAssetVisibilityState", &photoItem::duplicateAssetVisibilityState},
    {"duplicateMetadataMatchingAlbum", &photoItem::duplicateMetadataMatchingAlbum},
    {"duplicatePerceptualMatchingAlbum", &photoItem::duplicatePerceptualMatchingAlbum},
    {"packedBadgeAttributes", &photoItem::packedBadgeAttributes},
    {"depthType", &photoItem::depthType},
    {"moment", &photoItem::moment},
    {"thumbnailIndex", &photoItem::thumbnailIndex},
    {"uniformTypeIdentifier", &photoItem::uniformTypeIdentifier},
    {"localResourcesState", &photoItem::localResourcesState},
    {"customRenderedValue", &photoItem::customRenderedValue},
    {"cameraCaptureDevice", &photoItem::cameraCaptureDevice},
    {"hasAdjustments", &photoItem::hasAdjustments},
    {"hidden", &photoItem::hidden},
    {"cloudLocalState", &photoItem::cloudLocalState},
    {"importSession", &photoItem::importSession},
};

inline constexpr Field<albumItem> albumFields[] = {
    {"id", &albumItem::id},
    {"entity", &albumItem::entity},
    {"kind", &albumItem::kind},
    {"trashedState", &albumItem::trashedState},
    {"uuid", &albumItem::uuid},
    {"title", &albumItem::title},
    {"albumType", &albumItem::albumType},
    {"photoIds", &albumItem::photoIds},
};

inline constexpr Field<photoGroup> groupFields[] = {
    {"category", &photoGroup::category}, {"key", &photoGroup::key},
    {"title", &photoGroup::title},       {"coverAssetId", &photoGroup::coverAssetId},
    {"favorite", &photoGroup::favorite}, {"assetIds", &photoGroup::assetIds},
};

inline const auto &fieldsOf(const photoItem &)
{
    return photoFields;
}
inline const auto &fieldsOf(const albumItem &)
{
    return albumFields;
}
inline const auto &fieldsOf(const photoGroup &)
{
    return groupFields;
}

/// Calls `visit(name, value)` for each field of `record`, in order.
template <typename Record, typename Visitor>
void visitFields(const Record &record, Visitor &&visit)
{
    for (const auto &field : fieldsOf(record))
        std::visit([&](auto member) { visit(field.name, record.*member); }, field.member);
}

} // namespace photocli

#endif
