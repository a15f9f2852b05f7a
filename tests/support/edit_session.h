// The scripted edit session over a grid of ticket_articulo lines, written
// once and run on every control kit: a quantity typed as "12,5", a date as
// "150324", an article picked through the lookup by typing part of its
// description then Down and Enter, a Check toggled, a bad date held with the
// warning picture and its tool tip, a value the host refuses, then the host
// saves the edited lines through the adapter and reads them back.
//
//   EditSession s(connection, screen);   // the kit's grid, overlays, driver
//   s.PrepareDatabase();                  // articles and one ticket's three lines
//   s.Load();                             // CargaMSFlexGrid with the overlays
//   s.Run();                              // the user's steps, each asserted
//   s.SaveAndReadBack();                  // what the database holds afterwards
//
// Each step asserts the cells, the entities and the host's events with
// GoogleTest; the events the host heard are in HostEvents, in order.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos.h"

namespace zaro_test {

struct EditSessionScreen {
    OVT_ZARO::ControlRef grid, text, list, calendar;
    OVT_ZARO::UserDriver* user = nullptr;
    // The picture of any cell of the grid, read without moving its current cell.
    std::function<OVT_ZARO::PictureRef(int32_t row, int32_t col)> cellPicture;
    // Lets the kit's screen catch up after a step (a toolkit's pending events); may be empty.
    std::function<void()> settle;
};

class EditSession {
public:
    EditSession(OVT_ZARO::ConnectionRef cn, EditSessionScreen screen);

    void PrepareDatabase();
    void Load();
    void Run();
    void SaveAndReadBack();

    // The steps of Run, one by one, for a kit's test that looks between them.
    void EditQuantity();
    void EditDate();
    void PickArticleThroughLookup();
    void ToggleCheck();
    void HoldBadDate();
    void RefusedThenAcceptedAmount();

    const std::vector<std::string>& HostEvents() const { return events_; }
    const OVT_ZARO::ControlListHelperRef& Helper() const { return helper_; }
    const std::shared_ptr<OVT_ZARO::colticket_articulo>& Lines() const { return lines_; }

private:
    void Settle();
    std::string Cell(int32_t row, int32_t col);

    OVT_ZARO::ConnectionRef cn_;
    EditSessionScreen screen_;
    OVT_ZARO::ControlListHelperRef helper_;
    std::shared_ptr<OVT_ZARO::colticket_articulo> lines_;
    OVT_ZARO::coleccionColumnasRef columns_;
    std::vector<std::string> events_;
    std::vector<OVT_ZARO::IEntidadRef> edited_;
};

}  // namespace zaro_test
