<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: what every report shares. The page style, the head of a report, dates as
     "dd/mmm/yyyy", money with two decimals and thousands separators, and the names of the libraries and
     schools and the requests of an order, which the report documents carry as numbers.

     The names come from a second document that the program hands to the transform under the address
     below; where it is missing (the document opened elsewhere) a report shows the numbers. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:decimal-format name="dinero" decimal-separator="." grouping-separator="," NaN="" minus-sign="-"/>

  <xsl:variable name="nombres" select="document('urn:korvel8:adquisiciones:nombres')/nombres"/>
  <xsl:key name="nombre" match="/nombres/*" use="concat(local-name(), ':', number(@n))"/>

  <!-- Column names are compared without regard to case: the query decides how they are written. -->
  <xsl:variable name="may" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="min" select="'abcdefghijklmnopqrstuvwxyz'"/>

  <!-- The page. Numbers, dates and codes never wrap; titles, authors and names wrap between words only. -->
  <xsl:template name="estilo">
    <xsl:param name="letra" select="'8pt'"/>
    <style type="text/css">
body { font-family: "DejaVu Sans", Tahoma, Verdana, Arial, sans-serif; font-size: 9pt; color: #000; background: #fff; }
h3 { font-size: 12pt; margin: 4px 0; }
h4 { font-size: 10pt; margin: 10px 0 4px 0; }
p.datos { margin: 0 0 2px 0; }
table { border-collapse: collapse; font-size: <xsl:value-of select="$letra"/>; }
th, td { border: 1px solid #808080; padding: 2px 4px; vertical-align: top; text-align: left; }
th { background: #e0e0e0; }
td.num { text-align: right; white-space: nowrap; }
td.dato { white-space: nowrap; }
span.titulo { font-weight: bold; }
p.totales { font-weight: bold; margin: 6px 0; }
    </style>
  </xsl:template>

  <!-- The head of a report: its title, the period when it has one, and the day it was drawn. -->
  <xsl:template name="encabezado">
    <xsl:param name="titulo"/>
    <xsl:param name="raiz" select="/*"/>
    <xsl:param name="periodo" select="true()"/>
    <h3><xsl:value-of select="$titulo"/></h3>
    <xsl:if test="$periodo">
      <p class="datos">Periodo: del <xsl:value-of select="$raiz/@fechaInicial"/> al <xsl:value-of select="$raiz/@fechaFinal"/>.</p>
    </xsl:if>
    <p class="datos">Fecha del reporte: <xsl:value-of select="$raiz/@fechaReporte"/></p>
  </xsl:template>

  <!-- The value of the record's column named so, in any case. -->
  <xsl:template name="columna">
    <xsl:param name="nombre"/>
    <xsl:value-of select="*[translate(local-name(), $may, $min) = $nombre]"/>
  </xsl:template>

  <!-- "dd/mm/yyyy", with or without a time, as "dd/mmm/yyyy"; anything else as it stands. -->
  <xsl:template name="fecha">
    <xsl:param name="valor"/>
    <xsl:variable name="v" select="normalize-space($valor)"/>
    <xsl:variable name="mes" select="number(substring($v, 4, 2))"/>
    <xsl:choose>
      <xsl:when test="substring($v, 3, 1) = '/' and substring($v, 6, 1) = '/' and $mes &gt;= 1 and $mes &lt;= 12">
        <xsl:value-of select="concat(substring($v, 1, 2), '/',
            substring('enefebmarabrmayjunjulagosepoctnovdic', 3 * $mes - 2, 3), '/', substring($v, 7, 4))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$v"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Money: "1,234.50"; empty stays empty. -->
  <xsl:template name="dinero">
    <xsl:param name="valor"/>
    <xsl:if test="normalize-space($valor) != ''">
      <xsl:value-of select="format-number($valor, '#,##0.00', 'dinero')"/>
    </xsl:if>
  </xsl:template>

  <!-- The name of a library ('biblioteca') or school ('escuela') by its number; the number when there is
       no name. -->
  <xsl:template name="nombre">
    <xsl:param name="tipo"/>
    <xsl:param name="numero"/>
    <xsl:variable name="n" select="normalize-space($numero)"/>
    <xsl:variable name="hallado">
      <xsl:for-each select="$nombres">
        <xsl:value-of select="key('nombre', concat($tipo, ':', number($n)))"/>
      </xsl:for-each>
    </xsl:variable>
    <xsl:choose>
      <xsl:when test="string($hallado) != ''"><xsl:value-of select="$hallado"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="$n"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The same for the record's column named so. -->
  <xsl:template name="nombreDe">
    <xsl:param name="tipo"/>
    <xsl:param name="columna"/>
    <xsl:call-template name="nombre">
      <xsl:with-param name="tipo" select="$tipo"/>
      <xsl:with-param name="numero" select="*[translate(local-name(), $may, $min) = $columna]"/>
    </xsl:call-template>
  </xsl:template>

  <!-- The work a record describes, as a catalogue would: its title, and below it the author, publisher,
       edition and ISBN that the record holds, each in its own element. -->
  <!-- A sheet that knows how its document spells the columns passes them, which spares the search. -->
  <xsl:template name="obra">
    <xsl:param name="titulo" select="*[translate(local-name(), $may, $min) = 'titulo']"/>
    <xsl:param name="autor" select="*[translate(local-name(), $may, $min) = 'autor']"/>
    <xsl:param name="editorial" select="*[translate(local-name(), $may, $min) = 'noeditorial' or
                                          translate(local-name(), $may, $min) = 'editorial']"/>
    <xsl:param name="edicion" select="*[translate(local-name(), $may, $min) = 'edicion']"/>
    <xsl:param name="isbn" select="*[translate(local-name(), $may, $min) = 'isbn']"/>
    <span class="titulo"><xsl:value-of select="$titulo"/></span>
    <xsl:if test="normalize-space(concat($autor, $editorial, $edicion, $isbn)) != ''"><br/></xsl:if>
    <xsl:if test="normalize-space($autor) != ''"><span><xsl:value-of select="$autor"/></span></xsl:if>
    <xsl:if test="normalize-space($editorial) != ''">
      <xsl:if test="normalize-space($autor) != ''">
        <!-- An author written with its initial already ends in a period. -->
        <xsl:choose>
          <xsl:when test="substring(normalize-space($autor), string-length(normalize-space($autor))) = '.'"><xsl:text> </xsl:text></xsl:when>
          <xsl:otherwise>. </xsl:otherwise>
        </xsl:choose>
      </xsl:if><span><xsl:value-of select="$editorial"/></span>
    </xsl:if>
    <xsl:if test="normalize-space($edicion) != ''">
      <xsl:if test="normalize-space(concat($autor, $editorial)) != ''">, </xsl:if>ed. <span><xsl:value-of select="$edicion"/></span>
    </xsl:if>
    <xsl:if test="normalize-space($isbn) != ''">
      <xsl:if test="normalize-space(concat($autor, $editorial, $edicion)) != ''">. </xsl:if>ISBN <span><xsl:value-of select="$isbn"/></span>
    </xsl:if>
  </xsl:template>

  <!-- Where a record goes: its library by name, and below it its school when the record has one. -->
  <xsl:template name="destino">
    <xsl:variable name="escuela" select="*[translate(local-name(), $may, $min) = 'noescuela']"/>
    <span><xsl:call-template name="nombreDe">
      <xsl:with-param name="tipo" select="'biblioteca'"/><xsl:with-param name="columna" select="'nobiblioteca'"/>
    </xsl:call-template></span>
    <xsl:if test="normalize-space($escuela) != ''">
      <br/><span><xsl:call-template name="nombre">
        <xsl:with-param name="tipo" select="'escuela'"/><xsl:with-param name="numero" select="$escuela"/>
      </xsl:call-template></span>
    </xsl:if>
  </xsl:template>

  <!-- When and with which invoice a record was received: the date, and the invoice below it. -->
  <xsl:template name="recepcion">
    <xsl:call-template name="fecha">
      <xsl:with-param name="valor" select="*[translate(local-name(), $may, $min) = 'fechaderecepcion']"/>
    </xsl:call-template>
    <xsl:variable name="factura" select="*[translate(local-name(), $may, $min) = 'factura']"/>
    <xsl:if test="normalize-space($factura) != ''"><br/><span><xsl:value-of select="$factura"/></span></xsl:if>
  </xsl:template>

  <!-- The sum of the record column named so over the given records. -->
  <xsl:template name="suma">
    <xsl:param name="registros"/>
    <xsl:param name="columna"/>
    <xsl:value-of select="sum($registros/*[translate(local-name(), $may, $min) = $columna][number(.) = number(.)])"/>
  </xsl:template>

</xsl:stylesheet>
