#pragma once
// The parser of the dialect: one statement in, one tree out. Text after the statement (other than a
// closing semicolon) is an error 3142 and nothing runs.
#include "core/jet/Ast.h"

#include <optional>

namespace jet {

Sentencia Analiza(const QString& sentencia);

// A bare expression, as a recordset's FindFirst criterion.
ExprPtr AnalizaExpresion(const QString& expresion);

// The contents of a #...# date literal, in every form the statements use: yyyy/mm/dd[ hh:nn[:ss]],
// mm/dd/yyyy, mm-dd-yyyy[ hh:nn], dd/mmm/yyyy with Spanish or English month names; nullopt if it is none.
std::optional<vb::Fecha> LeeLiteralFecha(const QString& contenido);

}  // namespace jet
