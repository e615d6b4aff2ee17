<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>OBJReader</name>
    <message>
        <source>no file name</source>
        <translation>kein Dateiname</translation>
    </message>
    <message>
        <source>cannot open file</source>
        <translation>Datei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>no data</source>
        <translation>keine Daten</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>multiple material files unsupported</source>
        <translation>mehrere Materialdateien werden nicht unterstützt</translation>
    </message>
    <message>
        <source>incomplete uv mapping</source>
        <translation>unvollständige UV-Zuordnung</translation>
    </message>
    <message>
        <source>incomplete vertex coordinates</source>
        <translation>unvollständige Eckpunktkoordinaten</translation>
    </message>
    <message>
        <source>incomplete texture coordinates</source>
        <translation>unvollständige Texturkoordinaten</translation>
    </message>
    <message>
        <source>incomplete vertex normal coordinates</source>
        <translation>unvollständige Koordinaten einer Eckpunktnormale</translation>
    </message>
    <message>
        <source>unable to load mesh with current texture support flag</source>
        <translation>das Netz kann mit der gewählten Texturunterstützung nicht geladen werden</translation>
    </message>
    <message>
        <source>no material file name</source>
        <translation>kein Name einer Materialdatei</translation>
    </message>
    <message>
        <source>cannot open material file</source>
        <translation>Materialdatei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>cannot find texture file</source>
        <translation>Texturdatei nicht gefunden</translation>
    </message>
    <message>
        <source>cannot open texture file</source>
        <translation>Texturdatei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>invalid vertex id</source>
        <translation>ungültige Eckpunktnummer</translation>
    </message>
    <message>
        <source>quad faces not supported</source>
        <translation>viereckige Flächen werden nicht unterstützt</translation>
    </message>
    <message>
        <source>invalid material file</source>
        <translation>ungültige Materialdatei</translation>
    </message>
</context>
<context>
    <name>PLYWriter</name>
    <message>
        <source>Unable to create .ply file at location: %1</source>
        <translation>Die .ply-Datei kann hier nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>Could not write data to file at location: %1</source>
        <translation>Die Daten der Datei konnten hier nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>Could not write header to file at location: %1</source>
        <translation>Der Kopf der Datei konnte hier nicht geschrieben werden: %1</translation>
    </message>
</context>
<context>
    <name>QImageReader</name>
    <message>
        <source>Unable to read image data</source>
        <translation>Bilddaten konnten nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>STLWriter</name>
    <message>
        <source>Unable to create .stl file at location: %1</source>
        <translation>Die .stl-Datei kann hier nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>Writing failed!</source>
        <translation>Schreiben fehlgeschlagen!</translation>
    </message>
    <message>
        <source>Member variable(s) not set.</source>
        <translation>Es wurden keine Daten gesetzt.</translation>
    </message>
</context>
</TS>
