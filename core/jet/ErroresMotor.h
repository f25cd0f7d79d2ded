#pragma once
// The database engine's errors: numbers as the original engine gives them, with Spanish descriptions.
// Every failure of the dialect front end, of SQLite underneath and of the DAO layer comes out as a
// vb::Error carrying one of these numbers.
#include "core/vb/Error.h"

#include <QString>

namespace jet {

enum NumeroError : int {
    ErrNoHayRegistroActual = 3021,
    ErrSinAddNewNiEdit = 3020,
    ErrValorDuplicado = 3022,
    ErrArchivoNoEncontrado = 3024,
    ErrSoloLectura = 3027,
    ErrNoSePuedeAbrir = 3051,
    ErrPocosParametros = 3061,
    ErrConsultaNoActualizable = 3073,
    ErrSintaxisExpresion = 3075,
    ErrTablaNoEncontrada = 3078,
    ErrFuncionNoDefinida = 3085,
    ErrNoEsParteDelAgregado = 3122,
    ErrCampoInsertDesconocido = 3127,
    ErrSentenciaNoValida = 3129,
    ErrSintaxisFrom = 3131,
    ErrSintaxisInsert = 3134,
    ErrSintaxisJoin = 3135,
    ErrSintaxisOrderBy = 3138,
    ErrCaracteresAlFinal = 3142,
    ErrSintaxisUpdate = 3144,
    ErrSintaxisDelete = 3128,
    ErrCampoDemasiadoPequeno = 3163,
    ErrTablaYaExiste = 3010,
    ErrBaseYaExiste = 3204,
    ErrBloqueado = 3260,
    ErrElementoNoEncontrado = 3265,
    ErrSintaxisCreateTable = 3290,
    ErrSintaxisAlterTable = 3293,
    ErrSentenciaAccion = 3219,
    ErrRequerido = 3314,
    ErrLongitudCero = 3315,
    ErrFormatoNoReconocido = 3343,
    ErrValoresYCampos = 3346,
    ErrDesbordamiento = 6,             // the language's overflow, which money in an expression raises
    ErrDesbordamientoCampo = 3349,
    ErrSubconsultaVariasFilas = 3354,
    ErrCampoYaExiste = 3380,
    ErrNombreNoValido = 3125,
    ErrTiposNoCoinciden = 3464,
    ErrOperacionNoValida = 3251,
    ErrCampoAmbiguo = 3079,
    ErrSubconsultaVariosCampos = 3306,
    ErrReservado = 3000,
    ErrRecursosExcedidos = 3035,
    ErrDiscoORed = 3043,
    ErrDemasiadosCampos = 3190,
    ErrAgregadoEnExpresion = 3095,     // an aggregate where no group is made: a SET, a WHERE, a VALUES
    ErrConsultaCompleja = 3360,
};

// Description of an engine error, with %1 (and %2) filled from the arguments.
QString DescripcionError(int numero, const QString& a1 = QString(), const QString& a2 = QString());

[[noreturn]] void Lanza(int numero, const QString& a1 = QString(), const QString& a2 = QString());

}  // namespace jet
