<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>AddTrialForm</name>
    <message>
        <source>Service name</source>
        <translation>サービス名</translation>
    </message>
    <message>
        <source>e.g. Netflix, Canva Pro</source>
        <translation>例：Netflix、Canva Pro</translation>
    </message>
    <message>
        <source>Trial ends</source>
        <translation>トライアル終了日時</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation>終了後の月額料金</translation>
    </message>
</context>
<context>
    <name>AlertContent</name>
    <message>
        <source>Remove &quot;%@&quot; from Norvane?</source>
        <translation>&quot;%@&quot;をNorvaneから削除しますか？</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>%@ added</source>
        <translation>%@を追加しました</translation>
    </message>
    <message>
        <source>%@ deleted</source>
        <translation>%@を削除しました</translation>
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
        <translation>終了後の月額料金</translation>
    </message>
</context>
<context>
    <name>DateTimeField</name>
    <message>
        <source>Day</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Choose a day</source>
        <translation>日付を選択</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
</context>
<context>
    <name>DayCell</name>
    <message>
        <source>Today</source>
        <translation>今日</translation>
    </message>
</context>
<context>
    <name>DeleteAlert</name>
    <message>
        <source>Delete Trial?</source>
        <translation>トライアルを削除しますか？</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No trials tracked</source>
        <translation>記録されたトライアルはありません</translation>
    </message>
    <message>
        <source>Add a free trial to get started</source>
        <translation>無料トライアルを追加して始めましょう</translation>
    </message>
</context>
<context>
    <name>FormActions</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Track Trial</source>
        <translation>トライアルを記録</translation>
    </message>
</context>
<context>
    <name>MonthPage</name>
    <message>
        <source>Previous month</source>
        <translation>前の月</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>次の月</translation>
    </message>
</context>
<context>
    <name>NorvaneApp</name>
    <message>
        <source>Norvane is already running in another session of this user.</source>
        <translation>Norvane はこのユーザーの別のセッションですでに実行中です。</translation>
    </message>
</context>
<context>
    <name>PanelFooter</name>
    <message>
        <source>Add Trial</source>
        <translation>トライアルを追加</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
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
        <translation>%lld件有効</translation>
    </message>
</context>
<context>
    <name>TrayMenu</name>
    <message>
        <source>Open Norvane</source>
        <translation>Norvane を開く</translation>
    </message>
</context>
<context>
    <name>TrialList</name>
    <message>
        <source>Trials</source>
        <translation>トライアル</translation>
    </message>
    <message>
        <source>%lld in total</source>
        <translation>全%lld件</translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>%@ of %lld</source>
        <translation>%lld件中%@件目</translation>
    </message>
    <message>
        <source>%lldd left</source>
        <translation>残り%lld日</translation>
    </message>
</context>
</TS>
