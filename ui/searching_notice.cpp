// Where the notice of a search stands.
#include "ui/searching_notice.h"

namespace zt {

namespace {

constexpr int kWidth = 16;

struct PlaceRow {
    int y;  // below 0: a placement with a height
    int bottomOrHeight;
};

constexpr PlaceRow kPlaces[] = {
    {-4, 3},         // the viewer's: a quarter of the way down
    {5, 5 + 7 - 1},  // the editor's: seven rows from row 5
};

const PlaceRow& RowOf(SearchingNotice::Place place) {
    return kPlaces[static_cast<int>(place)];
}

}  // namespace

SearchingNotice::SearchingNotice(Place place)
    : window(-1, RowOf(place).y, kWidth, RowOf(place).bottomOrHeight,
             Colour(ColourClass::kMessages), Colour(ColourClass::kMessages)) {
    window.Print(1, 0, "Searching...");
}

}  // namespace zt
