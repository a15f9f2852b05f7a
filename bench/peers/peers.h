// What every contender of the peer benchmark shares: the row it reads into,
// the sums it checks what it read with, the statement files the driver
// writes, and the line it answers with. No database code here: each
// contender is a program of its own, linked to its own client library.
#pragma once

#include <time.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "fila.h"

namespace peers {

using bench_rows::Fila;

// A sum over every field of a row: two contenders that read the same rows
// give the same sum.
inline long long Suma(const Fila& f) {
    long long s = f.COD_TRANSACC + 3LL * f.CD_OP + 5LL * f.TIPO_OPERACION + 7LL * f.TIPO_FAMILIA +
                  11LL * f.TIPO_SUBFAMILIA + (f.y * 10000LL + f.mo * 100 + f.d) + std::llround(f.PRECIOMAX * 1000);
    for (const std::string* t : {&f.HORA_REAL, &f.CD_ARTICULO, &f.IDARTICOLGS1, &f.DESC_ARTICULO, &f.DESC_CORTA}) {
        s = s * 31 + static_cast<long long>(t->size());
        for (unsigned char c : *t) s += c;
    }
    return s;
}

struct Cuenta {
    long long filas = 0;
    long long suma = 0;
    void Anadir(const Fila& f) {
        ++filas;
        suma += Suma(f);
    }
    std::string Texto() const { return std::to_string(filas) + "/" + std::to_string(suma); }
};

// Statement files: each statement as its length (4 bytes, little-endian)
// and its bytes.
inline void Escribir(const std::string& path, const std::vector<std::string>& sentencias) {
    std::ofstream out(path, std::ios::binary);
    for (const std::string& s : sentencias) {
        const uint32_t n = static_cast<uint32_t>(s.size());
        const unsigned char len[4] = {static_cast<unsigned char>(n), static_cast<unsigned char>(n >> 8),
                                      static_cast<unsigned char>(n >> 16), static_cast<unsigned char>(n >> 24)};
        out.write(reinterpret_cast<const char*>(len), 4);
        out.write(s.data(), static_cast<std::streamsize>(s.size()));
    }
}

inline std::vector<std::string> Leer(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::vector<std::string> r;
    unsigned char len[4];
    while (in.read(reinterpret_cast<char*>(len), 4)) {
        const uint32_t n = len[0] | (len[1] << 8) | (len[2] << 16) | (static_cast<uint32_t>(len[3]) << 24);
        std::string s(n, '\0');
        in.read(s.data(), n);
        r.push_back(std::move(s));
    }
    if (r.empty()) {
        std::fprintf(stderr, "no statements in %s\n", path.c_str());
        std::exit(2);
    }
    return r;
}

// The four works, each with its files in the driver's folder:
//   read    read.sql: one statement, every row of the table;
//   lookup  lookup.sql: one statement per key, keys.txt: the keys;
//   insert  insert.sql: pairs of statements, the existence check (a count
//           that must give 0) and the insert;
//   plain   the inserts of insert.sql alone.
// A contender serves the driver: it reads lines "<work> <chunk>" and answers
// each with a RESULT line. A read reads every row each time; the other works
// come in kChunks chunks of their statements, so that the driver can run the
// contenders by turns in small slices.
constexpr int kChunks = 10;

// The positions [from, to) of a chunk of n items.
inline std::pair<size_t, size_t> Trozo(int chunk, size_t n) {
    return {n * static_cast<size_t>(chunk) / kChunks, n * static_cast<size_t>(chunk + 1) / kChunks};
}

struct Args {
    std::string socket, database, dir;
    std::string keys;  // more keys of a connection string (the ZARODatos contender)
};

inline Args LeerArgs(int argc, char** argv, int from) {
    Args a;
    for (int i = from; i + 1 < argc; i += 2) {
        const std::string k = argv[i];
        if (k == "--socket") a.socket = argv[i + 1];
        else if (k == "--database") a.database = argv[i + 1];
        else if (k == "--dir") a.dir = argv[i + 1];
        else if (k == "--keys") a.keys = argv[i + 1];
    }
    if (a.socket.empty() || a.database.empty() || a.dir.empty()) {
        std::fprintf(stderr, "usage: --socket S --database D --dir DIR (then lines \"<work> <chunk>\" on input)\n");
        std::exit(2);
    }
    return a;
}

inline std::vector<std::string> Claves(const Args& a) {
    std::vector<std::string> r;
    std::ifstream in(a.dir + "/keys.txt");
    for (std::string k; std::getline(in, k);) r.push_back(k);
    return r;
}

[[noreturn]] inline void Fallo(const std::string& what) {
    std::fprintf(stderr, "contender failed: %s\n", what.c_str());
    std::exit(3);
}

// Wall and CPU time of a chunk alone (connecting and reading the files are
// not counted).
class Reloj {
public:
    Reloj() : wall_(Ahora(CLOCK_MONOTONIC)), cpu_(Ahora(CLOCK_PROCESS_CPUTIME_ID)) {}
    // The answer the driver reads: wall ms, CPU ms, and what the chunk checked.
    void Responder(const std::string& check) const {
        std::printf("RESULT %.3f %.3f %s\n", Ahora(CLOCK_MONOTONIC) - wall_, Ahora(CLOCK_PROCESS_CPUTIME_ID) - cpu_,
                    check.c_str());
        std::fflush(stdout);
    }

private:
    static double Ahora(clockid_t c) {
        timespec t{};
        clock_gettime(c, &t);
        return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
    }
    double wall_, cpu_;
};

// The serving loop: for each line "<work> <chunk>" of the input, runs
// chunk(work, chunk) (which gives what it checked) and answers; "quit" or
// the end of the input ends it.
template <class F>
void Servir(F&& chunk) {
    char line[256];
    while (std::fgets(line, sizeof line, stdin)) {
        char work[32] = {0};
        int k = 0;
        if (std::sscanf(line, "%31s %d", work, &k) < 1 || std::string(work) == "quit") break;
        Reloj reloj;
        const std::string check = chunk(std::string(work), k);
        reloj.Responder(check);
    }
}

}  // namespace peers
