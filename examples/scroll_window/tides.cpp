#include "tides.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tide_table {
namespace {

double wave(double hour, double period) {
    return std::cos(2 * std::numbers::pi * hour / period);
}

}  // namespace

const std::vector<port>& ports() {
    static const std::vector<port> all{
        {L"Aberdeen", L"Scotland", 2.5, 1.4, 0.5, 1.2},
        {L"A Coruña", L"Spain", 2.3, 1.2, 0.4, 4.1},
        {L"Amsterdam", L"Netherlands", 1.1, 0.7, 0.2, 3.0},
        {L"Ålesund", L"Norway", 1.3, 0.6, 0.2, 10.4},
        {L"Bergen", L"Norway", 0.9, 0.4, 0.2, 9.8},
        {L"Bordeaux", L"France", 2.9, 1.8, 0.5, 6.4},
        {L"Boulogne", L"France", 4.9, 2.9, 1.0, 11.2},
        {L"Brest", L"France", 4.2, 2.1, 0.7, 3.9},
        {L"Bristol", L"England", 7.0, 4.3, 1.5, 7.1},
        {L"Cádiz", L"Spain", 2.0, 1.0, 0.4, 1.6},
        {L"Calais", L"France", 4.1, 2.4, 0.8, 11.6},
        {L"Cherbourg", L"France", 3.8, 1.9, 0.7, 8.0},
        {L"Cork", L"Ireland", 2.4, 1.4, 0.4, 5.2},
        {L"Cuxhaven", L"Germany", 2.1, 1.3, 0.3, 0.6},
        {L"Dieppe", L"France", 5.1, 3.1, 1.0, 10.7},
        {L"Dover", L"England", 3.8, 2.2, 0.7, 11.1},
        {L"Dublin", L"Ireland", 2.4, 1.3, 0.4, 11.9},
        {L"Esbjerg", L"Denmark", 1.1, 0.7, 0.2, 2.6},
        {L"Galway", L"Ireland", 3.0, 1.6, 0.6, 4.9},
        {L"Gibraltar", L"Gibraltar", 0.6, 0.3, 0.1, 2.1},
        {L"Hamburg", L"Germany", 2.3, 1.7, 0.2, 4.4},
        {L"Harwich", L"England", 2.2, 1.4, 0.4, 11.8},
        {L"Holyhead", L"Wales", 3.3, 1.8, 0.6, 10.2},
        {L"Inverness", L"Scotland", 2.6, 1.5, 0.5, 12.0},
        {L"La Rochelle", L"France", 3.8, 1.8, 0.6, 3.7},
        {L"Le Havre", L"France", 4.9, 2.7, 0.8, 9.7},
        {L"Lerwick", L"Scotland", 1.4, 0.6, 0.2, 10.6},
        {L"Lisboa", L"Portugal", 2.2, 1.1, 0.4, 2.3},
        {L"Liverpool", L"England", 5.2, 3.1, 1.0, 11.4},
        {L"Nuuk", L"Greenland", 2.6, 1.4, 0.5, 6.0},
        {L"Oban", L"Scotland", 2.4, 1.2, 0.5, 5.8},
        {L"Oostende", L"Belgium", 2.6, 1.7, 0.5, 0.3},
        {L"Plymouth", L"England", 3.2, 1.7, 0.6, 5.6},
        {L"Porto", L"Portugal", 2.1, 1.1, 0.4, 2.5},
        {L"Reykjavík", L"Iceland", 2.4, 1.4, 0.5, 5.9},
        {L"Rotterdam", L"Netherlands", 1.2, 0.8, 0.2, 3.3},
        {L"Saint-Malo", L"France", 6.8, 3.9, 1.4, 6.2},
        {L"Southampton", L"England", 2.8, 1.4, 0.4, 10.9},
        {L"Tórshavn", L"Faroe Islands", 0.4, 0.1, 0.1, 8.7},
        {L"Vigo", L"Spain", 2.2, 1.2, 0.4, 2.8},
    };
    return all;
}

double height(const port& at, double hour) {
    const double since = hour - at.delay;
    return at.mean_level + at.lunar * wave(since, 12.42) + at.solar * wave(since, 12.0);
}

bool is_high_water(const port& at, int hour) {
    const double here = height(at, hour);
    return here > height(at, hour - 1) && here >= height(at, hour + 1);
}

double greatest_range(const port& at) {
    double lowest = height(at, 0);
    double highest = lowest;
    for (int hour = 1; hour < hours_shown; ++hour) {
        lowest = std::min(lowest, height(at, hour));
        highest = std::max(highest, height(at, hour));
    }
    return highest - lowest;
}

}  // namespace tide_table
