<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>OBJReader</name>
    <message>
        <source>no file name</source>
        <translation>brak nazwy pliku</translation>
    </message>
    <message>
        <source>cannot open file</source>
        <translation>nie można otworzyć pliku</translation>
    </message>
    <message>
        <source>no data</source>
        <translation>brak danych</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>przerwano</translation>
    </message>
    <message>
        <source>multiple material files unsupported</source>
        <translation>wiele plików materiałów nie jest obsługiwanych</translation>
    </message>
    <message>
        <source>incomplete uv mapping</source>
        <translation>niepełne przypisanie UV</translation>
    </message>
    <message>
        <source>incomplete vertex coordinates</source>
        <translation>niepełne współrzędne wierzchołka</translation>
    </message>
    <message>
        <source>incomplete texture coordinates</source>
        <translation>niepełne współrzędne tekstury</translation>
    </message>
    <message>
        <source>incomplete vertex normal coordinates</source>
        <translation>niepełne współrzędne normalnej wierzchołka</translation>
    </message>
    <message>
        <source>unable to load mesh with current texture support flag</source>
        <translation>nie można wczytać siatki przy wybranej obsłudze tekstur</translation>
    </message>
    <message>
        <source>no material file name</source>
        <translation>brak nazwy pliku materiałów</translation>
    </message>
    <message>
        <source>cannot open material file</source>
        <translation>nie można otworzyć pliku materiałów</translation>
    </message>
    <message>
        <source>cannot find texture file</source>
        <translation>nie znaleziono pliku tekstury</translation>
    </message>
    <message>
        <source>cannot open texture file</source>
        <translation>nie można otworzyć pliku tekstury</translation>
    </message>
    <message>
        <source>invalid vertex id</source>
        <translation>nieprawidłowy numer wierzchołka</translation>
    </message>
    <message>
        <source>quad faces not supported</source>
        <translation>ściany czworokątne nie są obsługiwane</translation>
    </message>
    <message>
        <source>invalid material file</source>
        <translation>nieprawidłowy plik materiałów</translation>
    </message>
</context>
<context>
    <name>PLYWriter</name>
    <message>
        <source>Unable to create .ply file at location: %1</source>
        <translation>Nie można utworzyć pliku .ply w tym miejscu: %1</translation>
    </message>
    <message>
        <source>Could not write data to file at location: %1</source>
        <translation>Nie udało się zapisać danych pliku w tym miejscu: %1</translation>
    </message>
    <message>
        <source>Could not write header to file at location: %1</source>
        <translation>Nie udało się zapisać nagłówka pliku w tym miejscu: %1</translation>
    </message>
</context>
<context>
    <name>QImageReader</name>
    <message>
        <source>Unable to read image data</source>
        <translation>Nie można odczytać danych obrazu</translation>
    </message>
</context>
<context>
    <name>STLWriter</name>
    <message>
        <source>Unable to create .stl file at location: %1</source>
        <translation>Nie można utworzyć pliku .stl w tym miejscu: %1</translation>
    </message>
    <message>
        <source>Writing failed!</source>
        <translation>Zapis nie powiódł się!</translation>
    </message>
    <message>
        <source>Member variable(s) not set.</source>
        <translation>Nie ustawiono danych.</translation>
    </message>
</context>
</TS>
