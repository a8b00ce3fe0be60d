<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- A language with three plural forms, for a test. -->
<TS version="2.1" language="pl_PL" sourcelanguage="en">
<context>
    <name>PanelHeader</name>
    <message numerus="yes">
        <source>%lld active</source>
        <translation>
            <numerusform>%lld aktywny</numerusform>
            <numerusform>%lld aktywne</numerusform>
            <numerusform>%lld aktywnych</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message numerus="yes">
        <source>%lldd left</source>
        <translation>
            <numerusform>%lld dzień</numerusform>
            <numerusform>%lld dni</numerusform>
            <numerusform>dni: %lld</numerusform>
        </translation>
    </message>
</context>
</TS>
