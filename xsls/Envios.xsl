<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: material enviado (adquisiciones y donaciones) -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>
  <!-- Column names are compared without regard to case: the query decides how they are written. -->
  <xsl:variable name="may" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="min" select="'abcdefghijklmnopqrstuvwxyz'"/>

  <xsl:template match="/">
    <html>
      <head>
        <title>Reporte de material enviado</title>
        <style type="text/css">
body { margin: 8px; font-family: Tahoma, Verdana, Arial, sans-serif; font-size: 9pt; color: #000; background: #fff; }
h3 { font-size: 12pt; margin: 4px 0; }
h4 { font-size: 10pt; margin: 10px 0 4px 0; }
p.periodo { margin: 0 0 6px 0; }
table { border-collapse: collapse; width: 100%; font-size: 8pt; }
th, td { border: 1px solid #808080; padding: 2px 4px; vertical-align: top; text-align: left; }
th { background: #e0e0e0; }
td.num { text-align: right; }
p.totales { font-weight: bold; margin: 6px 0; }
        </style>
      </head>
      <body>
        <h3>Reporte de material enviado</h3>
        <xsl:variable name="partes" select="descendant-or-self::*[local-name() = 'AReporte' or local-name() = 'DReporte']"/>
        <p class="periodo">Periodo: del <xsl:value-of select="$partes[1]/@fechaInicial"/> al <xsl:value-of select="$partes[1]/@fechaFinal"/>.
          Fecha del reporte: <xsl:value-of select="$partes[1]/@fechaReporte"/></p>
        <xsl:for-each select="$partes">
          <h4>
            <xsl:choose>
              <xsl:when test="local-name() = 'AReporte'">Adquisiciones</xsl:when>
              <xsl:otherwise>Donaciones</xsl:otherwise>
            </xsl:choose>
          </h4>
          <xsl:call-template name="tabla"/>
          <xsl:call-template name="totales"/>
        </xsl:for-each>
      </body>
    </html>
  </xsl:template>

  <!-- The records of one report: a header row, one row each, and a notice when there are none. -->
  <xsl:template name="tabla">
    <table>
      <tr><th>Título</th><th>Autor</th><th>No. adquisición</th><th>Biblioteca</th></tr>
      <xsl:for-each select="*">
        <tr>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'titulo']"/></td>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'autor']"/></td>
          <td><xsl:value-of select="*[translate(local-name(), $may, $min) = 'noadquisicion']"/></td>
          <td class="num"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'nobiblioteca']"/></td>
        </tr>
      </xsl:for-each>
      <xsl:if test="not(*)">
        <tr><td colspan="4">No hay material en este periodo.</td></tr>
      </xsl:if>
    </table>
  </xsl:template>

  <xsl:template name="totales">
    <p class="totales">Ejemplares enviados: <xsl:value-of select="@Registros"/>
      <xsl:if test="@NumTitulos">. Títulos: <xsl:value-of select="@NumTitulos"/></xsl:if></p>
  </xsl:template>
</xsl:stylesheet>
