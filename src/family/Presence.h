#pragma once

#include "data/Seats.h"
#include "family/DeclarationKey.h"
#include "values/Error.h"

namespace xa518 {

class Base;

/// Another program works on a declaration: `BaseBloqueada`, and a text that says what to do.
class TrabajoAjeno : public Error {
  public:
    TrabajoAjeno();

  protected:
    explicit TrabajoAjeno(const QString& texto);
};

/// Another seat has this declaration open; the text says who, where and since when.
class DeclaracionAbierta : public TrabajoAjeno {
  public:
    explicit DeclaracionAbierta(const Puesto& quien);
};

/// Holds one declaration for this program where several work on a base at once, until it goes or its connection ends.
/// On a file, and for a key that isn't complete yet, it holds nothing.
class Presencia {
  public:
    /// Raises `DeclaracionAbierta`, or `TrabajoAjeno` when nobody knows who has it.
    Presencia(Base& base, const ClaveDeclaracion& clave);
    Presencia(const Presencia&) = delete;
    Presencia& operator=(const Presencia&) = delete;
    ~Presencia();

    /// The declaration got its key; the same one once more is no other. Raises as above.
    void Toma(const ClaveDeclaracion& clave);

  private:
    Base* m_base;
    std::optional<DeclaracionOcupada> m_tomada;
};

/// Raises `DeclaracionAbierta` while another seat has a declaration of that declarant open.
void ExigeSinAbiertasDe(Base& base, const Ruc& ruc);

} // namespace xa518
