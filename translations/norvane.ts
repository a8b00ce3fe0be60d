<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1">
<context>
    <name>AddTrialForm</name>
    <message>
        <source>Service name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>e.g. Netflix, Canva Pro</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trial ends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AlertContent</name>
    <message>
        <source>Remove &quot;%@&quot; from Norvane?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>%@ added</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%@ deleted</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CostRow</name>
    <message>
        <source>$</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>0.00</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DateTimeField</name>
    <message>
        <source>Day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DayCell</name>
    <message>
        <source>Today</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeleteAlert</name>
    <message>
        <source>Delete Trial?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No trials tracked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a free trial to get started</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FormActions</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Track Trial</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MonthPage</name>
    <message>
        <source>Previous month</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next month</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NorvaneApp</name>
    <message>
        <source>Norvane is already running in another session of this user.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PanelFooter</name>
    <message>
        <source>Add Trial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PanelHeader</name>
    <message>
        <source>Norvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%lld active</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TrayMenu</name>
    <message>
        <source>Open Norvane</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TrialList</name>
    <message>
        <source>Trials</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%lld in total</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%@ of %lld</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%lldd left</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
