<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AddTrialForm</name>
    <message>
        <source>Service name</source>
        <translation>Name des Dienstes</translation>
    </message>
    <message>
        <source>e.g. Netflix, Canva Pro</source>
        <translation>z. B. Netflix, Canva Pro</translation>
    </message>
    <message>
        <source>Trial ends</source>
        <translation>Ende der Testphase</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation>Monatliche Kosten danach</translation>
    </message>
</context>
<context>
    <name>AlertContent</name>
    <message>
        <source>Remove &quot;%@&quot; from Norvane?</source>
        <translation>&quot;%@&quot; aus Norvane entfernen?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>%@ added</source>
        <translation>%@ hinzugefügt</translation>
    </message>
    <message>
        <source>%@ deleted</source>
        <translation>%@ gelöscht</translation>
    </message>
</context>
<context>
    <name>CostRow</name>
    <message>
        <source>$</source>
        <translation>$</translation>
    </message>
    <message>
        <source>0.00</source>
        <translation>0.00</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation>Monatliche Kosten danach</translation>
    </message>
</context>
<context>
    <name>DateTimeField</name>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Choose a day</source>
        <translation>Tag auswählen</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
</context>
<context>
    <name>DayCell</name>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
</context>
<context>
    <name>DeleteAlert</name>
    <message>
        <source>Delete Trial?</source>
        <translation>Testphase löschen?</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No trials tracked</source>
        <translation>Keine Testphasen erfasst</translation>
    </message>
    <message>
        <source>Add a free trial to get started</source>
        <translation>Füge zuerst eine kostenlose Testphase hinzu</translation>
    </message>
</context>
<context>
    <name>FormActions</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Track Trial</source>
        <translation>Testphase erfassen</translation>
    </message>
</context>
<context>
    <name>MonthPage</name>
    <message>
        <source>Previous month</source>
        <translation>Voriger Monat</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Nächster Monat</translation>
    </message>
</context>
<context>
    <name>NorvaneApp</name>
    <message>
        <source>Norvane is already running in another session of this user.</source>
        <translation>Norvane läuft bereits in einer anderen Sitzung dieses Benutzers.</translation>
    </message>
</context>
<context>
    <name>PanelFooter</name>
    <message>
        <source>Add Trial</source>
        <translation>Testphase hinzufügen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>PanelHeader</name>
    <message>
        <source>Norvane</source>
        <translation>Norvane</translation>
    </message>
    <message>
        <source>%lld active</source>
        <translation>%lld aktiv</translation>
    </message>
</context>
<context>
    <name>TrayMenu</name>
    <message>
        <source>Open Norvane</source>
        <translation>Norvane öffnen</translation>
    </message>
</context>
<context>
    <name>TrialList</name>
    <message>
        <source>Trials</source>
        <translation>Testphasen</translation>
    </message>
    <message>
        <source>%lld in total</source>
        <translation>%lld insgesamt</translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>%@ of %lld</source>
        <translation>%@ von %lld</translation>
    </message>
    <message>
        <source>%lldd left</source>
        <translation>noch %lld Tg.</translation>
    </message>
</context>
</TS>
