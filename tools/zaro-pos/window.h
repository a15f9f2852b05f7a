// zaro-pos: the back office of a restaurant's sales data, over the library's
// list binding on the Qt kit. Two tabs:
//   "Artículos"  the article master in a grid (code kept in a hidden key
//                column), sorted by a click on a heading, edited in place,
//                saved through daarticulo (Update or Insert), with a count of
//                the rows not saved yet (marked "*" in the indicator column);
//   "Tickets"    the day's tickets in a list; the selected ticket's lines in
//                a grid with a lookup of the article (description shown, code
//                kept), quantity, amount and date (with the calendar), saved
//                through daticket_articulo.
// Errors the library raises show in the status line with number, source and
// description; a refused save keeps its rows edited and marked.
#pragma once

#include <QMainWindow>
#include <memory>
#include <vector>
#include <string>

#include "ZARODatos.h"
#include "ZARODatosQt/QtControls.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace zaro_pos {

class PosWindow : public QMainWindow {
public:
    explicit PosWindow(OVT_ZARO::ConnectionRef cn, QWidget* parent = nullptr);
    ~PosWindow() override;

    // Reads the article master and the day's tickets again.
    void Reload();
    // Saves the edited rows; false when any was refused (it stays marked).
    bool SaveArticles();
    bool SaveLines();
    // Adds an article of that code to the grid, not saved yet.
    void AddArticle(const std::string& code);

    // What the screen shows, for tests and the screenshot.
    struct Articles {
        std::shared_ptr<OVT_ZARO::QtKit::Form> form;
        std::shared_ptr<OVT_ZARO::QtKit::MSFlexGrid> grid;
        std::shared_ptr<OVT_ZARO::QtKit::TextBox> text;
        std::shared_ptr<OVT_ZARO::QtKit::ListBox> list;
        std::shared_ptr<OVT_ZARO::QtKit::MonthView> calendar;
        std::shared_ptr<OVT_ZARO::colarticulo> rows;
        QLabel* pending = nullptr;
        QLineEdit* newCode = nullptr;
    };
    struct Tickets {
        std::shared_ptr<OVT_ZARO::QtKit::Form> form;
        std::shared_ptr<OVT_ZARO::QtKit::ListBox> tickets;
        std::shared_ptr<OVT_ZARO::QtKit::MSFlexGrid> grid;
        std::shared_ptr<OVT_ZARO::QtKit::TextBox> text;
        std::shared_ptr<OVT_ZARO::QtKit::ListBox> list;
        std::shared_ptr<OVT_ZARO::QtKit::MonthView> calendar;
        std::shared_ptr<OVT_ZARO::colticket_articulo> lines;
        QLabel* day = nullptr;
        QLabel* pending = nullptr;
    };
    Articles& ArticlesTab() { return articles_; }
    Tickets& TicketsTab() { return tickets_; }
    QTabWidget* Tabs() const { return tabs_; }
    std::string Status() const;
    size_t PendingArticles() const { return pendingArticles_.size(); }
    size_t PendingLines() const { return pendingLines_.size(); }
    bool IsPending(const OVT_ZARO::IEntidadRef& e) const;

private:
    void BuildArticles();
    void BuildTickets();
    void LoadArticles();
    void LoadTickets();
    void LoadLines();
    void ShowError(const OVT_ZARO::Error& e);
    void ShowMessage(const std::string& text);
    void MarkRow(const OVT_ZARO::ControlRef& grid, int32_t row, bool pending);
    void UpdateCounts();
    std::string CodeOfNumber(const OVT_ZARO::Variant& number);
    void PrepareLookup();

    OVT_ZARO::ConnectionRef cn_;
    OVT_ZARO::ControlListHelperRef helper_;
    QTabWidget* tabs_ = nullptr;
    Articles articles_;
    Tickets tickets_;
    std::vector<OVT_ZARO::IEntidadRef> pendingArticles_, pendingLines_;  // edited, not saved yet
    OVT_ZARO::Date day_;
};

}  // namespace zaro_pos
