<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>AddTrialForm</name>
    <message>
        <source>Service name</source>
        <translation>Nombre del servicio</translation>
    </message>
    <message>
        <source>e.g. Netflix, Canva Pro</source>
        <translation>p. ej., Netflix, Canva Pro</translation>
    </message>
    <message>
        <source>Trial ends</source>
        <translation>Fin de la prueba</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation>Coste mensual tras la prueba</translation>
    </message>
</context>
<context>
    <name>AlertContent</name>
    <message>
        <source>Remove &quot;%@&quot; from Norvane?</source>
        <translation>¿Quitar &quot;%@&quot; de Norvane?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>%@ added</source>
        <translation>Se ha añadido %@</translation>
    </message>
    <message>
        <source>%@ deleted</source>
        <translation>Se ha eliminado %@</translation>
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
        <translation>Coste mensual tras la prueba</translation>
    </message>
</context>
<context>
    <name>DateTimeField</name>
    <message>
        <source>Day</source>
        <translation>Día</translation>
    </message>
    <message>
        <source>Choose a day</source>
        <translation>Elegir un día</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
</context>
<context>
    <name>DayCell</name>
    <message>
        <source>Today</source>
        <translation>Hoy</translation>
    </message>
</context>
<context>
    <name>DeleteAlert</name>
    <message>
        <source>Delete Trial?</source>
        <translation>¿Eliminar la prueba?</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No trials tracked</source>
        <translation>No hay pruebas en seguimiento</translation>
    </message>
    <message>
        <source>Add a free trial to get started</source>
        <translation>Añade una prueba gratuita para empezar</translation>
    </message>
</context>
<context>
    <name>FormActions</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Track Trial</source>
        <translation>Seguir la prueba</translation>
    </message>
</context>
<context>
    <name>MonthPage</name>
    <message>
        <source>Previous month</source>
        <translation>Mes anterior</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Mes siguiente</translation>
    </message>
</context>
<context>
    <name>NorvaneApp</name>
    <message>
        <source>Norvane is already running in another session of this user.</source>
        <translation>Norvane ya se está ejecutando en otra sesión de este usuario.</translation>
    </message>
</context>
<context>
    <name>PanelFooter</name>
    <message>
        <source>Add Trial</source>
        <translation>Añadir prueba</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
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
        <translation>activas: %lld</translation>
    </message>
</context>
<context>
    <name>TrayMenu</name>
    <message>
        <source>Open Norvane</source>
        <translation>Abrir Norvane</translation>
    </message>
</context>
<context>
    <name>TrialList</name>
    <message>
        <source>Trials</source>
        <translation>Pruebas</translation>
    </message>
    <message>
        <source>%lld in total</source>
        <translation>%lld en total</translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>%@ of %lld</source>
        <translation>%@ de %lld</translation>
    </message>
    <message>
        <source>%lldd left</source>
        <translation>%lld d restantes</translation>
    </message>
</context>
</TS>
