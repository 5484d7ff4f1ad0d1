#include "ImportWorkshop.h"
#include "form518/Form0518.h"

#include <stdexcept>

namespace xa518::medida {

using namespace Qt::StringLiterals;

namespace {

const QString kRuc = u"20990518018"_s;
const QString kPeriodo = u"202610"_s;

} // namespace

Taller::Taller(const Tamanio& tamanio, bool vale) : m_reloj(QDateTime(QDate(2026, 11, 1), QTime(9, 0))) {
    for (const QString& clase : {u"1"_s, u"2"_s, u"6"_s})
        m_base.Param(u"953"_s, clase + u"010909200501"_s,
                     prueba::Funcion({{2, u"0.0200"_s}, {21, u"0.0200000"_s}, {31, u"2.00"_s}}));
    Muestra(tamanio).EscribeArchivo(Carpeta() + u"/0518"_s + kRuc + kPeriodo + u".TXT"_s,
                                    vale ? "15/10/2026" : "15/09/2026");
}

std::unique_ptr<Proceso> Taller::Abre() const {
    auto proceso = std::make_unique<Proceso>(m_reloj, Formularios{Formulario0518()}, kNumFormulario);
    proceso->baseDatos = Base::Abre(m_base.Ruta());
    proceso->fechaPrimerIgv = Periodo(2099, 12);
    proceso->rutaRPT = Carpeta() + u"/RPT"_s;
    return proceso;
}

ClaveDeclaracion Taller::Clave() {
    return {.ruc = Ruc(kRuc), .periodo = *Periodo::DeTabla(kPeriodo), .formulario = kNumFormulario};
}

void Exige(bool condicion, const char* motivo) {
    if (!condicion)
        throw std::runtime_error(motivo);
}

} // namespace xa518::medida
