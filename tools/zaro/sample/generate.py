#!/usr/bin/env python3
"""Writes the sample trading day that `zaro demo` records.

The files are in the exchange format of the tables: one row per line ending
in CR LF, every field followed by ";", the fields in the order of the table's
index, dates day first, decimals with a comma, and one more CR LF at the end
(as ExportarTexto writes them). Run it again to rebuild the files; the same
seed gives the same day.
"""
import os
import random
from decimal import Decimal, ROUND_HALF_UP

DAY = "14/03/2026"
COMPANY, RESTAURANT = 1, 12
TILLS = (1, 2, 3)  # each operator works one till all day; its code is the till's number
RATES = {1: Decimal("0.10"), 2: Decimal("0.21"), 3: Decimal("0.04")}  # fiscal type -> rate

# code, GS1, family, subfamily, fiscal type, price, description, short description
ARTICLES = [
    ("BEB001", "8400000000017", 1, 1, 1, "1.60", "Café solo", "Café solo"),
    ("BEB002", "8400000000024", 1, 1, 1, "1.90", "Café con leche", "Café con leche"),
    ("BEB003", "8400000000031", 1, 1, 1, "2.40", "Capuchino", "Capuchino"),
    ("BEB004", "8400000000048", 1, 2, 1, "2.10", "Agua mineral 50 cl", "Agua 50cl"),
    ("BEB005", "8400000000055", 1, 2, 1, "2.80", "Refresco de cola 33 cl", "Refresco cola"),
    ("BEB006", "8400000000062", 1, 2, 1, "3.50", "Zumo de naranja natural", "Zumo naranja"),
    ("BEB007", "8400000000079", 1, 3, 1, "3.20", "Caña de cerveza", "Caña"),
    ("BEB008", "8400000000086", 1, 3, 1, "3.90", "Copa de vino tinto", "Vino tinto"),
    ("COM001", "8400000000093", 2, 1, 1, "6.50", "Bocadillo de jamón", "Bocadillo jamón"),
    ("COM002", "8400000000109", 2, 1, 1, "5.80", "Bocadillo de tortilla", "Bocadillo tortilla"),
    ("COM003", "8400000000116", 2, 1, 1, "4.90", "Sándwich mixto", "Sándwich mixto"),
    ("COM004", "8400000000123", 2, 2, 1, "1.80", "Cruasán", "Cruasán"),
    ("COM005", "8400000000130", 2, 2, 1, "2.20", "Napolitana de chocolate", "Napolitana"),
    ("COM006", "8400000000147", 2, 3, 1, "8.90", "Ensalada mixta", "Ensalada"),
    ("COM007", "8400000000154", 2, 3, 1, "14.50", "Menú del día", "Menú del día"),
    ("TIE001", "8400000000161", 3, 1, 3, "2.00", "Periódico del día", "Periódico"),
    ("TIE002", "8400000000178", 3, 1, 3, "4.50", "Revista semanal", "Revista"),
    ("TIE003", "8400000000185", 3, 2, 2, "5.95", "Imán de recuerdo", "Imán"),
    ("TIE004", "8400000000192", 3, 2, 2, "1.20", "Postal", "Postal"),
]
DESTINATIONS = ["XMA", "XBC", "XLN", "XPA", "XRO"]

CENT = Decimal("0.01")


def money(x):
    return Decimal(x).quantize(CENT, rounding=ROUND_HALF_UP)


def num(x):
    """A number as the exchange writes it: no trailing zeros, decimal comma."""
    d = Decimal(x).normalize()
    text = format(d, "f")
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text in ("", "-0") else text.replace(".", ",")


def row(*cells):
    return "".join(f"{c};" for c in cells) + "\r\n"


def write(folder, name, rows):
    with open(os.path.join(folder, name), "w", encoding="utf-8", newline="") as f:
        f.write("".join(rows) + "\r\n")


def main():
    rnd = random.Random(20260314)
    folder = os.path.dirname(os.path.abspath(__file__))
    articulo = [row(8, DAY, "050000", 0, 1, code, gs1, fam, sub, num(price), desc, short)
                for code, gs1, fam, sub, _fiscal, price, desc, short in ARTICLES]
    inicio = [row(1, DAY, "0600%02d" % t, t, DAY) for t in TILLS]
    fin = [row(9, DAY, "2200%02d" % t, t, DAY) for t in TILLS]
    tickets, lines, taxes, payments = [], [], [], []
    cd_ticket = 1000
    for till in TILLS:
        minute = 6 * 60 + 10 + till * 3
        sold = []  # (article, units) of this till's sales, for the returns
        for number in range(1, 16):
            minute += rnd.randint(20, 70)
            time = "%02d%02d%02d" % (minute // 60, minute % 60, rnd.randint(0, 59))
            cd_ticket += 1
            kind = 1
            if number in (9,) and till == 2:
                kind = 2  # a return of an earlier sale
            elif number == 12 and till == 3:
                kind = 3  # a voided ticket
            elif number == 14 and till == 1:
                kind = 2
            staff = rnd.random() < 0.15 and kind == 1
            if kind == 2:
                art, units = sold[rnd.randrange(len(sold))]
                items = [(art, 1)]
            else:
                items = []
                for _ in range(rnd.randint(1, 4)):
                    art = ARTICLES[rnd.randrange(len(ARTICLES))]
                    if any(a is art for a, _u in items):
                        continue
                    items.append((art, rnd.choice((1, 1, 1, 2, 3))))
                if kind == 1:
                    sold.extend(items)
            discount_rate = Decimal("0.10") if staff else Decimal("0")
            t_gross = t_net = t_tax = t_disc = Decimal(0)
            t_units = 0
            by_rate = {}
            for line_no, (art, units) in enumerate(items, start=1):
                code, _gs1, fam, sub, fiscal, price, _desc, short = art
                rate = RATES[fiscal]
                sale = money(Decimal(price) * units)
                disc = money(sale * discount_rate)
                gross = sale - disc
                net = money(gross / (1 + rate))
                tax = gross - net
                lines.append(row(2, DAY, time, till, code, short, fam, sub, num(net), num(gross), 1, units,
                                 num(sale), "", num(discount_rate), num(disc), fiscal, num(rate), num(tax),
                                 COMPANY, RESTAURANT, till, number, line_no))
                t_gross += gross
                t_net += net
                t_tax += tax
                t_disc += disc
                t_units += units
                by_rate[fiscal] = by_rate.get(fiscal, Decimal(0)) + tax
            for fiscal in sorted(by_rate):
                taxes.append(row(2, DAY, time, till, fiscal, num(RATES[fiscal]), num(by_rate[fiscal]), COMPANY,
                                 RESTAURANT, till, number))
            if t_gross > 20 and rnd.random() < 0.5:
                cash = money(t_gross / 2)
                split = [(1, cash), (2, t_gross - cash)]
            else:
                split = [(rnd.choice((1, 2, 2)), t_gross)]
            for pay_no, (pay_type, amount) in enumerate(split, start=1):
                payments.append(row(2, DAY, time, pay_no, pay_type, "", 0, num(amount), COMPANY, RESTAURANT, till,
                                    number))
            flight = "" if staff else "ZR%04d" % rnd.randint(100, 9999)
            tickets.append(row(2, DAY, time, till, cd_ticket, DAY, kind, 2 if staff else 1,
                               "" if staff else "XZA", "" if staff else rnd.choice(DESTINATIONS), flight,
                               num(t_net), num(t_gross), num(t_tax), num(t_disc), num(discount_rate), len(items),
                               len(by_rate), len(split), t_units, COMPANY, RESTAURANT, till, number))
    write(folder, "articulo.txt", articulo)
    write(folder, "inicio_dia.txt", inicio)
    write(folder, "ticket.txt", tickets)
    write(folder, "ticket_articulo.txt", lines)
    write(folder, "ticket_impuesto.txt", taxes)
    write(folder, "ticket_pago.txt", payments)
    write(folder, "fin_dia.txt", fin)


if __name__ == "__main__":
    main()
