#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <variant>

namespace xa518 {

/// What a report says of itself at its top: "<!nHojas!>3<!/nHojas!>" and its like.
struct Etiqueta {
    enum class Clase { Fuente, Hojas, Orientacion, Color };
    Clase clase = Clase::Fuente;
    QString valor;

    bool operator==(const Etiqueta&) const = default;
};

/// A text whose top left corner stands at a place of a page. Places are whole twips, sizes points; pages count from 0.
struct TextoEnPagina {
    int x = 0;
    int y = 0;
    QString texto;
    bool negrita = false;
    int tamano = 8;
    int pagina = 0;

    bool operator==(const TextoEnPagina&) const = default;
};

/// A text whose characters stand one under the other.
struct TextoVertical {
    TextoEnPagina texto;

    bool operator==(const TextoVertical&) const = default;
};

struct Cuadro {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    int pagina = 0;

    bool operator==(const Cuadro&) const = default;
};

/// A running line without text: it takes its place, and the file keeps a single blank for it.
struct LineaVacia {
    bool operator==(const LineaVacia&) const = default;
};

/// The page ends here.
struct NuevaHoja {
    bool operator==(const NuevaHoja&) const = default;
};

/// What reports are made of. Spool file, screen, printer and PDF all take the same commands.
using Comando = std::variant<Etiqueta, TextoEnPagina, TextoVertical, Cuadro, LineaVacia, NuevaHoja>;

/// The page that a command belongs to; -1 for one that belongs to none.
[[nodiscard]] int PaginaDe(const Comando& comando);

/// Adds a command's text form, with its line end. A text can't hold "|" nor control characters: they become blanks.
void AgregaTextoDe(QByteArray& salida, const Comando& comando);

/// The word of a tag, "nHojas" and its like.
[[nodiscard]] const char* PalabraDe(Etiqueta::Clase clase);

/// Takes the commands of a report, in their order.
class DestinoInforme {
  public:
    DestinoInforme() = default;
    DestinoInforme(const DestinoInforme&) = delete;
    DestinoInforme& operator=(const DestinoInforme&) = delete;
    virtual ~DestinoInforme() = default;

    virtual void Recibe(const Comando& comando) = 0;
    /// No more commands follow. Raises `Error` when what was received couldn't be kept.
    virtual void Termina() = 0;
};

} // namespace xa518
