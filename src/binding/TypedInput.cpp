// Typed input: the overlay's alignment on focus, the keystroke filter of
// number and date cells, the completion of dates, the calendar, and the
// display text of a committed value. The rules assume a decimal comma and
// dates that read day first: a "." typed in a number is taken as a slip for ",".
#include "ZARODatos/binding/ControlListDefinition.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Strings.h"
#include "binding/Comun.h"

namespace OVT_ZARO {

using enlace::Obj;
using enlace::Paso;
using enlace::Valor;

namespace {
constexpr int16_t kRetroceso = 8, kComa = 44, kGuion = 45, kPunto = 46;

bool EsNumerico(int16_t k) { return Valor([&] { return IsNumericText(Chr(k)); }, false); }
}  // namespace

void ControlListDefinition::mTextBox_GotFocus() {
    // Carries on past every failing step.
    Paso([&] {
        const eTiposDatoColumna tipo = Obj(Columnas).Item(ColActual())->TipoDato;
        Obj(mTextBox).SetAlignment(tipo == Entero || tipo == NumDecimal ? 1 : 0);
    });
    Paso([&] { Obj(mTextBox).SetSelStart(0); });
    Paso([&] { Obj(mTextBox).SetSelLength(Len(mTextBox->GetText())); });
}

void ControlListDefinition::mTextBox_KeyPress(int16_t& KeyAscii) {
    // Unguarded: what the filter gives is what the overlay receives.
    KeyAscii = FiltraTecla(mTextBox, KeyAscii);
}

int16_t ControlListDefinition::FiltraTecla(const ControlRef& control, ByRef<int16_t> KeyAscii) {
    // Carries on past every failing step: the key passes unless a step before
    // already refused it. R is what reaches the control; K steers the tests.
    int16_t R = *KeyAscii;
    int16_t K = *KeyAscii;
    const eTiposDatoColumna tipo =
        Valor([&] { return Obj(Columnas).Item(ColActual())->TipoDato; }, NoDefinido);
    if (tipo != Entero && tipo != NumDecimal && tipo != Fecha) return R;  // any key passes
    if (tipo == NumDecimal) {
        Paso([&] {
            if (InStr(Obj(control).GetText(), ",") > 0 && K == kPunto) K = 0;
        });
        int32_t S = 0, L = 0;
        std::string T;
        Paso([&] { S = Obj(control).GetSelStart(); });
        Paso([&] { L = control->GetSelLength(); });
        Paso([&] { T = control->GetText(); });
        T = Replace(T, ".", ",");
        const int32_t P = InStr(T, ",");
        if (K == kPunto) K = P == 0 ? kComa : 0;
        // The third decimal is refused, and only while the caret stands behind the comma.
        Paso([&] {
            if (P > 0 && Len(T) - P >= 2 && Obj(control).GetSelStart() >= P && K != kRetroceso) R = 0;
        });
        // On every key: a "." already in the text turns into ",", and the selection survives.
        Paso([&] { Obj(control).SetText(T); });
        Paso([&] { Obj(control).SetSelStart(S); });
        Paso([&] { Obj(control).SetSelLength(L); });
        if (K == kGuion) {
            Paso([&] { S = Obj(control).GetSelStart(); });
            Paso([&] { L = control->GetSelLength(); });
            Paso([&] { T = control->GetText(); });
            if (InStr(T, "-") > 0) R = 0;
            Paso([&] {
                if (Obj(control).GetSelStart() > 0) R = 0;
            });
            Paso([&] { Obj(control).SetText(T); });
            Paso([&] { Obj(control).SetSelStart(S); });
            Paso([&] { Obj(control).SetSelLength(L); });
        }
    }
    // An integer refuses "."; "," and "-" pass anywhere in it.
    if (tipo == Entero && K == kPunto) R = 0;
    if (tipo == Entero || tipo == NumDecimal) {
        // A K of 0 is caught here, and so are Enter and Escape.
        if (!EsNumerico(K) && K != kRetroceso && K != kPunto && K != kComa && K != kGuion) R = 0;
    }
    if (tipo == Fecha) {
        const std::string c = Valor([&] { return Chr(K); }, std::string());
        if (!EsNumerico(K) && c != "/" && c != "-" && K != kRetroceso && K != kPunto) R = 0;
    }
    return R;
}

bool ControlListDefinition::CompletaFecha() {
    // The overlay's text, written back after each step: no separators, then
    // DDMMYYYY or DDMMYY (years 00 to 30 are 2000 to 2030, 31 to 99 are 1931 to
    // 1999) as DD-MM-YYYY. Day and month are judged by the date recognition alone.
    Control& t = Obj(mTextBox);
    std::string T = Replace(t.GetText(), "/", "");
    t.SetText(T);
    T = Replace(T, "-", "");
    t.SetText(T);
    if (Len(T) == 8 && IsNumericText(T)) {
        T = Mid(T, 1, 2) + "-" + Mid(T, 3, 2) + "-" + Mid(T, 5, 4);
        t.SetText(T);
    } else if (Len(T) == 6 && IsNumericText(T)) {
        const std::string yy = Mid(T, 5, 2);
        const std::string anio = (Val(yy) > 30 ? "19" : "20") + yy;
        T = Mid(T, 1, 2) + "-" + Mid(T, 3, 2) + "-" + anio;
        t.SetText(T);
    }
    return IsDate(Variant(T));
}

void ControlListDefinition::MuestraMonthView() {
    // Carries on past every failing step.
    if (!mMonthView) return;
    Paso([&] { mMonthView->SetValue(Today()); });
    Paso([&] {
        const std::string texto = Obj(mTextBox).GetText();
        if (IsDate(Variant(texto))) mMonthView->SetValue(CDate(Variant(texto)));
    });
    Paso([&] { mMonthView->SetFontSize(Obj(MSFlexGrid).GetFontSize()); });
    Paso([&] { mMonthView->SetLeft(Obj(MSFlexGrid).GetLeft() + MSFlexGrid->GetCellLeft()); });
    // Directly below the cell.
    Paso([&] {
        mMonthView->SetTop(Obj(MSFlexGrid).GetTop() + MSFlexGrid->GetCellTop() + MSFlexGrid->GetCellHeight());
    });
    Paso([&] { mMonthView->SetVisible(true); });
}

void ControlListDefinition::mTextBox_DblClick() {
    // Carries on past a failing step.
    Paso([&] {
        if (Obj(Columnas).Item(ColActual())->TipoDato == Fecha) MuestraMonthView();
    });
}

void ControlListDefinition::mMonthView_DateClick(Date&) {
    // Carries on past every failing step. The day is read from the
    // calendar's Value, not from the argument; it commits at once.
    std::string formato;
    Paso([&] { formato = Obj(Columnas).Item(ColActual())->Formato; });
    if (formato.empty()) formato = "dd-mm-yyyy";
    // A Formato of a date column must give day, month, year in this order:
    // the commit completes the date again from this text.
    Paso([&] { Obj(mTextBox).SetText(CStr(Format(Variant(Obj(mMonthView).GetValue()), formato))); });
    Paso([&] { Obj(mTextBox).SetVisible(true); });  // a date from the calendar goes through the text edit
    Paso([&] { ConfirmaCelda(); });
    Paso([&] { Obj(mMonthView).SetVisible(false); });  // also when the commit failed
}

void ControlListDefinition::mMonthView_LostFocus() {
    // Unguarded: hides the calendar, without a commit.
    Obj(mMonthView).SetVisible(false);
}

std::string ControlListDefinition::FormateaValor(ByRef<std::string> texto, ByRef<int32_t> col) {
    // Carries on past every failing step.
    std::string resultado;
    if (*col == 0) Paso([&] { *col = ColActual(); });
    std::string f;
    ColumnaRef c;
    Paso([&] { c = Obj(Columnas).Item(*col); });
    if (c) f = c->Formato;
    const eTiposDatoColumna tipo = c ? c->TipoDato : NoDefinido;
    if (tipo == NumDecimal) {
        *texto = Replace(*texto, ".", ",");
        if (f.empty()) f = "#,##0.00";
    } else if (tipo == Fecha) {
        if (f.empty()) f = "dd-MM-yyyy";  // the same as "dd-mm-yyyy": tokens ignore case
    } else if (tipo == Check) {
        Paso([&] { ImagenCheck(*c, *texto); });
    }
    // The format reads the text as a number or a date under the locale, and leaves any other text.
    if (Trim(f).empty()) resultado = *texto;
    else Paso([&] { resultado = CStr(Format(Variant(*texto), f)); });
    return resultado;
}

}  // namespace OVT_ZARO
