// The piece images: 26 image lists drawn from our vector artwork when a board first asks for them.
#pragma once

#include "view/PieceLists.h"

#include <QImage>
#include <QString>

#include <array>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

// The images 1 to 12 of a list at index 1 to 12; index 0 is empty. Square, premultiplied alpha, counted in device
// pixels. A copy shares its pixels.
using PieceImages = std::array<QImage, PiecesInAList + 1>;

// A picture that was added to a list behind its twelve pieces.
struct KeyedImage {
    QString key;
    QImage image;
};

// The image lists, shared by all boards. A list costs nothing until its first use in a size, and stays from then on.
class PieceSets {
public:
    // What shows where an image is transparent, as 0xBBGGRR.
    static constexpr std::int32_t MaskColor = 0xC0C0C0;

    // The images of list 0 to 25, drawn for a screen of `ratio` device pixels to the pixel (1 and above). Faults
    // (subscript) on any other list. The reference holds until the program ends.
    const PieceImages& images(int list, double ratio);

    // The colour (0xBBGGRR) of pixel (1,1) of the list's first image. The artwork is transparent there, so it is the
    // MaskColor unless a set is drawn to its very corner.
    std::int32_t backgroundColor(int list);

    // How many images list 0 to 25 holds: the twelve pieces and those added since.
    int count(int list) const;

    // Adds an image behind the last one; faults (subscript) on a list outside 0 to 25.
    void add(int list, const QString& key, const QImage& image);

    // Takes out all images behind the twelfth.
    void removeAdded(int list);

    // The added image with that key; null when there is none.
    const QImage* find(int list, const QString& key) const;

    // How often a list has been drawn so far; each list counts once for each scale of a screen.
    int drawnLists() const { return drawnLists_; }

private:
    std::map<std::pair<int, int>, PieceImages> drawn_; // by list and side in device pixels
    std::map<int, std::vector<KeyedImage>> added_;
    int drawnLists_ = 0;
};

// The one set of lists of the program.
inline PieceSets imlPieces;
