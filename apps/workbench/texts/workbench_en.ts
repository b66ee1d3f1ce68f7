<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Edits</name>
    <message numerus="yes">
        <source>%n outlines fitted: %1 points became %2.</source>
        <translation>
            <numerusform>%n outline fitted: %1 points became %2.</numerusform>
            <numerusform>%n outlines fitted: %1 points became %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unusable shapes removed.</source>
        <translation>
            <numerusform>%n unusable shape removed.</numerusform>
            <numerusform>%n unusable shapes removed.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>%n shapes</source>
        <translation>
            <numerusform>%n shape</numerusform>
            <numerusform>%n shapes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WorkDocument</name>
    <message numerus="yes">
        <source>%1

%n shapes can be saved, %2 bytes would be left out. Open what can be saved?</source>
        <translation>
            <numerusform>%1

%n shape can be saved, %2 bytes would be left out. Open what can be saved?</numerusform>
            <numerusform>%1

%n shapes can be saved, %2 bytes would be left out. Open what can be saved?</numerusform>
        </translation>
    </message>
</context>
</TS>
