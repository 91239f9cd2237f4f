// The piece images: 26 image lists drawn from our vector artwork when a board first asks for them.
#include "view/PieceSets.h"

#include "platform/Colors.h"
#include "view/Artwork.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

QString artworkPath(int list, int image) {
    const std::string_view family = familyOfList(list).name;
    const int kind = (image - 1) % 6;
    return QStringLiteral("pieces/%1/%2%3.svg")
        .arg(QString::fromLatin1(family.data(), static_cast<qsizetype>(family.size())))
        .arg(QLatin1Char(image <= 6 ? 'w' : 'b'))
        .arg(QLatin1Char("kqrbnp"[kind]));
}

} // namespace

const PieceImages& PieceSets::images(int list, double ratio) {
    const int side = static_cast<int>(std::lround(pieceListSize(list) * ratio));
    const auto known = drawn_.find({list, side});
    if (known != drawn_.end()) return known->second;
    PieceImages drawn;
    ++drawnLists_;
    for (int image = 1; image <= PiecesInAList; ++image) {
        drawn[static_cast<std::size_t>(image)] = drawArtwork(artworkPath(list, image), side);
    }
    return drawn_.emplace(std::pair{list, side}, std::move(drawn)).first->second;
}

std::int32_t PieceSets::backgroundColor(int list) {
    QImage corner(1, 1, QImage::Format_RGB32);
    corner.fill(colorOf(MaskColor));
    QPainter(&corner).drawImage(QPoint(-1, -1), images(list, 1)[1]);
    return colorValue(corner.pixelColor(0, 0));
}

int PieceSets::count(int list) const {
    const auto added = added_.find(list);
    return PiecesInAList + (added == added_.end() ? 0 : static_cast<int>(added->second.size()));
}

void PieceSets::add(int list, const QString& key, const QImage& image) {
    pieceListSize(list); // faults on a list that is not there
    added_[list].push_back({key, image});
}

void PieceSets::removeAdded(int list) { added_.erase(list); }

const QImage* PieceSets::find(int list, const QString& key) const {
    const auto added = added_.find(list);
    if (added == added_.end()) return nullptr;
    const auto found = std::ranges::find(added->second, key, &KeyedImage::key);
    return found == added->second.end() ? nullptr : &found->image;
}
