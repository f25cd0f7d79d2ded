<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: material enviado (adquisiciones y donaciones) -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="comun.xsl"/>
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>

  <xsl:template match="/">
    <html>
      <head>
        <title>Reporte de material enviado</title>
        <xsl:call-template name="estilo"/>
      </head>
      <body>
        <xsl:variable name="partes" select="descendant-or-self::*[local-name() = 'AReporte' or local-name() = 'DReporte']"/>
        <xsl:call-template name="encabezado">
          <xsl:with-param name="titulo" select="'Reporte de material enviado'"/>
          <xsl:with-param name="raiz" select="$partes[1]"/>
        </xsl:call-template>
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

  <!-- The records of one part: a header row, one row each, and a notice when there are none. -->
  <xsl:template name="tabla">
    <table width="100%">
      <tr><th>Biblioteca</th><th>No. adquisición</th><th>Título</th><th>Autor</th></tr>
      <xsl:for-each select="*">
        <tr>
          <td width="20%"><xsl:call-template name="nombreDe"><xsl:with-param name="tipo" select="'biblioteca'"/><xsl:with-param name="columna" select="'nobiblioteca'"/></xsl:call-template></td>
          <td class="dato" width="12%"><xsl:call-template name="columna"><xsl:with-param name="nombre" select="'noadquisicion'"/></xsl:call-template></td>
          <td width="43%"><xsl:call-template name="columna"><xsl:with-param name="nombre" select="'titulo'"/></xsl:call-template></td>
          <td width="25%"><xsl:call-template name="columna"><xsl:with-param name="nombre" select="'autor'"/></xsl:call-template></td>
        </tr>
      </xsl:for-each>
      <xsl:if test="not(*)">
        <tr><td colspan="4">No hay material en este periodo.</td></tr>
      </xsl:if>
    </table>
  </xsl:template>

  <xsl:template name="totales">
    <p class="totales">Ejemplares enviados: <xsl:value-of select="count(*)"/>
      <xsl:if test="@NumTitulos">. Títulos: <xsl:value-of select="@NumTitulos"/></xsl:if></p>
  </xsl:template>
</xsl:stylesheet>
