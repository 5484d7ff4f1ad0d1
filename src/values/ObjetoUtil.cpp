#include "values/ObjetoUtil.h"

#include "values/Dates.h"
#include "values/Ruc.h"
#include "values/Text.h"

#include <QFileInfo>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRetroceso = 8;
constexpr int kEntrar = 13;
constexpr int kPrimeraNoControl = 32;

bool EsLetraODigito(QChar c) {
    return EsLetra(c) || EsDigito(c);
}

bool EsCaracterDeNombre(QChar c) {
    static const QString permitidos = u" áéíóúÁÉÍÓÚäëïöüÄËÏÖÜ.,-&'\"()/+*#:;_@%°"_s;
    return EsLetraODigito(c) || permitidos.contains(c);
}

template <typename Prueba>
bool Todos(QStringView texto, const Prueba& prueba) {
    return std::all_of(texto.begin(), texto.end(), prueba);
}

} // namespace

bool ObjetoUtil::ExisteArchivo(const QString& ruta) {
    return QFileInfo(ruta).isFile();
}

bool ObjetoUtil::ValidaRUC(QStringView numero) {
    return numero.size() == Ruc::kLargo && Ruc(numero).EsValido();
}

QString ObjetoUtil::AlineaIzquierda(const QString& texto, int ancho) {
    return texto.leftJustified(ancho, u' ');
}

QString ObjetoUtil::AlineaDerecha(const QString& texto, int ancho) {
    return texto.rightJustified(ancho, u' ');
}

QString ObjetoUtil::CompletaDerecha(const QString& texto, int ancho, QChar relleno) {
    return texto.leftJustified(ancho, relleno);
}

QString ObjetoUtil::CompletaIzquierda(const QString& texto, int ancho, QChar relleno) {
    return texto.rightJustified(ancho, relleno);
}

bool ObjetoUtil::FechaEnRango(QStringView fecha, QStringView desde, QStringView hasta) {
    const auto dia = LeeFecha(fecha);
    const auto primero = LeeFecha(desde);
    const auto ultimo = LeeFecha(hasta);
    return dia && primero && ultimo && *primero <= *dia && *dia <= *ultimo;
}

bool ObjetoUtil::ValidaNumeroDoc(QStringView texto) {
    return !texto.isEmpty() && SonDigitos(texto);
}

bool ObjetoUtil::ValidaTextoDoc(QStringView texto) {
    return !texto.isEmpty() && Todos(texto, EsLetraODigito);
}

bool ObjetoUtil::ValidaCaracteres(QStringView texto) {
    return Todos(texto, EsCaracterDeNombre);
}

QString ObjetoUtil::QuitaEnie(QString texto) {
    return texto.replace(u'Ñ', u'N').replace(u'ñ', u'n');
}

bool ObjetoUtil::EsTeclaNumero(int tecla) {
    return (tecla >= '0' && tecla <= '9') || (tecla > 0 && tecla < kPrimeraNoControl);
}

bool ObjetoUtil::EsTeclaValida(int tecla) {
    const QChar c(static_cast<char16_t>(tecla));
    return tecla == kRetroceso || tecla == kEntrar || c == u' ' || EsLetraODigito(c);
}

} // namespace xa518
