<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>New Project</source>
        <translation>Neues Projekt</translation>
    </message>
</context>
</TS>
