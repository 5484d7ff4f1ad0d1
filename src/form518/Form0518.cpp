#include "form518/Form0518.h"

#include "family/StoredDeclaration.h"
#include "form518/FormCatalogs.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The twin of the cash sales keeps its rows when their copy is deleted: wanted. The launcher reckons with them when it
/// numbers the next copy.
QList<TablaDeDeclaracion> Tablas() {
    return {
        kTablaCabecera,
        kTablaCasillas,
        {.nombre = u"F518PCAB"_s, .numericas = 6, .numericasEnviada = 6, .turnoAlEliminar = 6},
        {.nombre = u"F518PDET"_s, .numericas = 8, .numericasEnviada = 8, .turnoAlEliminar = 4},
        {.nombre = u"F518PDETVC"_s, .numericas = 9, .numericasEnviada = 9, .turnoAlEliminar = 5, .copiaQueda = true},
        {.nombre = u"F518PDETCP"_s, .numericas = 10, .numericasEnviada = 10, .turnoAlEliminar = 3}};
}

/// 501 and 503 are stored as given and 502 isn't, so that 502 is formatted twice; the bank in 015 isn't either and
/// loses its leading zero. Wanted: the receiver reads them so.
ReglaDeCasillas Casillas() {
    return {.talCual = {u"012"_s, u"005"_s, u"721"_s, u"987"_s, u"986"_s, u"985"_s, u"984"_s, u"983"_s,
                        u"720"_s, u"722"_s, u"723"_s, u"724"_s, u"725"_s, u"726"_s, u"727"_s, u"728"_s,
                        u"729"_s, u"871"_s, u"500"_s, u"501"_s, u"503"_s, u"506"_s, u"790"_s},
            .idCasilla = {{u"410"_s, u"05"_s}}};
}

} // namespace

const Formulario& Formulario0518() {
    static const Formulario formulario{
        .numero = kNumFormulario,
        .nombre = u"Agentes de Percepción"_s,
        .modulo = u"xa518"_s,
        .ayuda = u":/0518/Xa518.hlp"_s,
        .esquema = u":/0518/esquema"_s,
        .catalogo = u":/0518/catalogo"_s,
        .catalogos = CatalogosDelFormulario(),
        .ejemplo = u":/0518/ejemplo"_s,
        .tablas = Tablas(),
        .informes = {{u"PER005"_s, u"Errores de importación"_s},
                     {u"PER006"_s, u"Declaración"_s},
                     {u"PER007"_s, u"Anexo de la declaración"_s},
                     {u"PER008"_s, u"Qué cambia frente a lo enviado"_s}},
        .casillas = Casillas(),
    };
    return formulario;
}

} // namespace xa518
