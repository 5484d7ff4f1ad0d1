#pragma once

#include "data/CatalogLayout.h"
#include "detail/ClientChecks.h"

#include <QString>

#include <optional>

namespace xa518 {

struct TipoDocumento;

/// How the client dialog asks for names.
enum class Disposicion { Empresa, Persona };

/// The layout after a document type was picked. A RUC that begins with neither "10" nor "20" counts as a company's
/// here and as a person's while its number is typed. Wanted: the first two digits settle it, and typing goes on.
[[nodiscard]] Disposicion AlElegirTipo(const DatosCliente& datos);

/// The layout after a key in the number; nothing while it is too short to tell, and then the layout stays.
[[nodiscard]] std::optional<Disposicion> AlTeclearNumero(const DatosCliente& datos);

/// What a layout asks of the three name fields.
struct AspectoNombres {
    QString rotulo; ///< `Label4`
    bool apellidos; ///< both surnames are asked for
    int limite;     ///< of `TxtNombres`
};
[[nodiscard]] AspectoNombres AspectoDe(Disposicion disposicion);

/// Where an item has what the dialogs read back; before it stands what is shown.
struct TramosItemDocumento {
    static constexpr Tramo kLargo{u"largo", 68, 2};
    static constexpr Tramo kTipoDato{u"tipo_dato", 71, 1};
};

/// A document type as an item of the list: code, short name in 60 characters, and behind what shows the tail of length
/// and flags from which `ReglaDe` reads.
[[nodiscard]] QString ItemDe(const TipoDocumento& tipo);

/// What the item of a document type says about its number.
struct ReglaDeNumero {
    int limite = 0; ///< 0 without a type
    bool soloDigitos = false;
};
[[nodiscard]] ReglaDeNumero ReglaDe(QStringView item);

/// The key filter of `TxtNumDoc`: upper case; digits only, or digits and letters. Wanted: the flag is read here the
/// other way round than where whole numbers are checked, as the family's dialogs read it.
[[nodiscard]] int FiltraTeclaDocumento(int tecla, const ReglaDeNumero& regla);
/// Which keys it lets pass, in words.
[[nodiscard]] QString TeclasDeDocumento(const ReglaDeNumero& regla);

} // namespace xa518
