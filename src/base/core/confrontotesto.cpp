#include "confrontotesto.h"

#include <QList>
#include <sqlcipher/sqlite3.h>
#include <string>
#include <string_view>

namespace {

QString SenzaSegni(const QString& piegato) {
    QString base;
    base.reserve(piegato.size());
    for (const QChar c : piegato) {
        if (!c.isMark())
            base.append(c);
    }
    return base;
}

int Segno(int n) {
    return (n > 0) - (n < 0);
}

bool Ascii(const unsigned char* testo, int lunghezza) {
    for (int i = 0; i < lunghezza; ++i) {
        if (testo[i] >= 0x80)
            return false;
    }
    return true;
}

unsigned char MinuscolaAscii(unsigned char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + ('a' - 'A')) : c;
}

// Most names and values are plain ASCII: they are compared byte by byte, which gives the same
// answer as the full comparison would; the first non-ASCII byte hands over to it.
int ConfrontaUtf8(void*, int n1, const void* p1, int n2, const void* p2) {
    const auto* a = static_cast<const unsigned char*>(p1);
    const auto* b = static_cast<const unsigned char*>(p2);
    for (int i = 0;; ++i) {
        if (i == n1 || i == n2) {
            if (i == n1 && i == n2)
                return 0;
            const unsigned char resto = i == n1 ? b[i] : a[i];
            if (resto >= 0x80)
                break; // perhaps only accents follow, which do not make the text longer
            return i == n1 ? -1 : 1;
        }
        if (a[i] >= 0x80 || b[i] >= 0x80)
            break;
        const int differenza = MinuscolaAscii(a[i]) - MinuscolaAscii(b[i]);
        if (differenza != 0)
            return differenza;
    }
    return ConfrontaTesti(QString::fromUtf8(reinterpret_cast<const char*>(a), n1),
                          QString::fromUtf8(reinterpret_cast<const char*>(b), n2));
}

template <typename C>
bool Corrisponde(std::basic_string_view<C> testo, std::basic_string_view<C> modello, C escape) {
    constexpr auto nessuno = std::basic_string_view<C>::npos;
    std::size_t t = 0;
    std::size_t m = 0;
    std::size_t dopoPercento = nessuno;
    std::size_t ripresa = 0;
    while (t < testo.size()) {
        if (m < modello.size()) {
            const C c = modello[m];
            const bool letterale = escape != 0 && c == escape;
            if (!letterale && c == C('%')) {
                dopoPercento = ++m;
                ripresa = t;
                continue;
            }
            if (letterale && m + 1 < modello.size() && modello[m + 1] == testo[t]) {
                m += 2;
                ++t;
                continue;
            }
            if (!letterale && (c == C('_') || c == testo[t])) {
                ++m;
                ++t;
                continue;
            }
        }
        if (dopoPercento == nessuno)
            return false;
        m = dopoPercento;
        t = ++ripresa;
    }
    while (m < modello.size() && modello[m] == C('%') && modello[m] != escape)
        ++m;
    return m == modello.size();
}

std::u32string PiegatoPerSomiglianza(QStringView testo) {
    const QList<uint> punti = TestoPiegato(testo).normalized(QString::NormalizationForm_C).toUcs4();
    return {punti.begin(), punti.end()};
}

std::string MinuscoleAscii(const unsigned char* testo, int lunghezza) {
    std::string minuscolo(static_cast<std::size_t>(lunghezza), '\0');
    for (int i = 0; i < lunghezza; ++i)
        minuscolo[static_cast<std::size_t>(i)] = static_cast<char>(MinuscolaAscii(testo[i]));
    return minuscolo;
}

QString Testo(sqlite3_value* valore) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(valore)),
                             sqlite3_value_bytes(valore));
}

// like(pattern, text [, escape]); NULL in, NULL out, as the engine's own.
void FunzioneLike(sqlite3_context* contesto, int argomenti, sqlite3_value** valori) {
    const auto* modello = sqlite3_value_text(valori[0]);
    const int lunghezzaModello = sqlite3_value_bytes(valori[0]);
    const auto* testo = sqlite3_value_text(valori[1]);
    const int lunghezzaTesto = sqlite3_value_bytes(valori[1]);
    if (!modello || !testo)
        return;
    char32_t escape = 0;
    if (argomenti == 3) {
        if (!sqlite3_value_text(valori[2]))
            return;
        const QList<uint> punti = Testo(valori[2]).toUcs4();
        if (punti.size() != 1) {
            sqlite3_result_error(contesto, "ESCAPE expression must be a single character", -1);
            return;
        }
        escape = punti.first();
    }
    bool esito = false;
    if (escape < 0x80 && Ascii(modello, lunghezzaModello) && Ascii(testo, lunghezzaTesto)) {
        esito = Corrisponde<char>(MinuscoleAscii(testo, lunghezzaTesto),
                                  MinuscoleAscii(modello, lunghezzaModello), static_cast<char>(escape));
    } else {
        esito = SomigliaA(Testo(valori[1]), Testo(valori[0]), escape);
    }
    sqlite3_result_int(contesto, esito ? 1 : 0);
}

} // namespace

QString TestoPiegato(QStringView testo) {
    return testo.toString().normalized(QString::NormalizationForm_D).toCaseFolded();
}

int ConfrontaTesti(QStringView a, QStringView b) {
    const QString pa = TestoPiegato(a);
    const QString pb = TestoPiegato(b);
    const int base = SenzaSegni(pa).compare(SenzaSegni(pb));
    return Segno(base != 0 ? base : pa.compare(pb));
}

bool TestiUguali(QStringView a, QStringView b) {
    return ConfrontaTesti(a, b) == 0;
}

bool SomigliaA(QStringView testo, QStringView modello, char32_t escape) {
    return Corrisponde<char32_t>(PiegatoPerSomiglianza(testo), PiegatoPerSomiglianza(modello), escape);
}

void InstallaConfronti(sqlite3* db) {
    sqlite3_create_collation_v2(db, "NOCASE", SQLITE_UTF8, nullptr, ConfrontaUtf8, nullptr);
    for (const int argomenti : {2, 3})
        sqlite3_create_function_v2(db, "like", argomenti, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                   FunzioneLike, nullptr, nullptr, nullptr);
}
