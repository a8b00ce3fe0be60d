<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>AddTrialForm</name>
    <message>
        <source>Service name</source>
        <extracomment>Caption of the field for the name of the service whose trial it is; a screen reader says it of the field.</extracomment>
        <translation>サービス名</translation>
    </message>
    <message>
        <source>e.g. Netflix, Canva Pro</source>
        <extracomment>Shown in the empty field for the name of the service. The names stay as they are.</extracomment>
        <translation>例：Netflix、Canva Pro</translation>
    </message>
    <message>
        <source>Trial ends</source>
        <extracomment>Caption of the fields for the day and the time at which the trial ends.</extracomment>
        <translation>トライアル終了日時</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <extracomment>Caption of the field for what the service costs a month once the trial has ended.</extracomment>
        <translation>終了後の月額料金</translation>
    </message>
</context>
<context>
    <name>AlertContent</name>
    <message>
        <source>Remove &quot;%@&quot; from Norvane?</source>
        <extracomment>Explains the question whether to delete a trial. %@ is the name of the service; keep the straight quotes.</extracomment>
        <translation>&quot;%@&quot;をNorvaneから削除しますか？</translation>
    </message>
    <message>
        <source>Delete</source>
        <extracomment>Button that deletes the trial, below the question.</extracomment>
        <translation>削除</translation>
    </message>
    <message>
        <source>Cancel</source>
        <extracomment>Button that keeps the trial, below the question whether to delete it.</extracomment>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>%@ added</source>
        <extracomment>What a screen reader says once a trial was added. %@ is its name.</extracomment>
        <translation>%@を追加しました</translation>
    </message>
    <message>
        <source>%@ deleted</source>
        <extracomment>What a screen reader says once a trial was deleted. %@ is its name.</extracomment>
        <translation>%@を削除しました</translation>
    </message>
</context>
<context>
    <name>CostRow</name>
    <message>
        <source>$</source>
        <extracomment>Currency sign before the field for the cost. It is the same in every language.</extracomment>
        <translation>$</translation>
    </message>
    <message>
        <source>0.00</source>
        <extracomment>Shown in the empty field for the cost. The decimal mark is always a point.</extracomment>
        <translation>0.00</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <extracomment>What a screen reader says of the field for the cost; the same as its caption.</extracomment>
        <translation>終了後の月額料金</translation>
    </message>
</context>
<context>
    <name>DateTimeField</name>
    <message>
        <source>Day</source>
        <extracomment>Which of the two fields for the end of the trial this is: the one for the date.</extracomment>
        <translation>日付</translation>
    </message>
    <message>
        <source>Choose a day</source>
        <extracomment>What a screen reader says of the button that opens the calendar.</extracomment>
        <translation>日付を選択</translation>
    </message>
    <message>
        <source>Time</source>
        <extracomment>Which of the two fields for the end of the trial this is: the one for the time of day.</extracomment>
        <translation>時刻</translation>
    </message>
</context>
<context>
    <name>DayCell</name>
    <message>
        <source>%@, today</source>
        <extracomment>What a screen reader says of the calendar&apos;s cell that is today. %@ is the date.</extracomment>
        <translation>%@、今日</translation>
    </message>
    <message>
        <source>%@, selected</source>
        <extracomment>What a screen reader says of the calendar&apos;s cell that is the chosen day. %@ is the date.</extracomment>
        <translation>%@、選択中</translation>
    </message>
</context>
<context>
    <name>DeleteAlert</name>
    <message>
        <source>Delete Trial?</source>
        <extracomment>Title of the question whether to delete a trial.</extracomment>
        <translation>トライアルを削除しますか？</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No trials tracked</source>
        <extracomment>Stands in the place of the list while it is empty.</extracomment>
        <translation>記録されたトライアルはありません</translation>
    </message>
    <message>
        <source>Add a free trial to get started</source>
        <extracomment>Stands below &quot;No trials tracked&quot;.</extracomment>
        <translation>無料トライアルを追加して始めましょう</translation>
    </message>
</context>
<context>
    <name>FormActions</name>
    <message>
        <source>Cancel</source>
        <extracomment>Button that closes the form without adding a trial.</extracomment>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Track Trial</source>
        <extracomment>Button that adds the trial which was entered in the form.</extracomment>
        <translation>トライアルを記録</translation>
    </message>
</context>
<context>
    <name>MonthCalendar</name>
    <message>
        <source>Choose a day</source>
        <extracomment>What a screen reader says of the calendar when it opens.</extracomment>
        <translation>日付を選択</translation>
    </message>
</context>
<context>
    <name>MonthPage</name>
    <message>
        <source>Previous month</source>
        <extracomment>Button of the calendar, an arrow.</extracomment>
        <translation>前の月</translation>
    </message>
    <message>
        <source>Next month</source>
        <extracomment>Button of the calendar, an arrow.</extracomment>
        <translation>次の月</translation>
    </message>
</context>
<context>
    <name>NorvaneApp</name>
    <message>
        <source>Norvane is already running in another session of this user.</source>
        <extracomment>Shown as a notification before the program ends, because of the other session.</extracomment>
        <translation>Norvane はこのユーザーの別のセッションですでに実行中です。</translation>
    </message>
</context>
<context>
    <name>PanelFooter</name>
    <message>
        <source>Add Trial</source>
        <extracomment>Button that opens the form for a new trial.</extracomment>
        <translation>トライアルを追加</translation>
    </message>
    <message>
        <source>Quit</source>
        <extracomment>Button that ends the program.</extracomment>
        <translation>終了</translation>
    </message>
</context>
<context>
    <name>PanelHeader</name>
    <message>
        <source>Norvane</source>
        <extracomment>The name of the program. It is the same in every language.</extracomment>
        <translation>Norvane</translation>
    </message>
    <message numerus="yes">
        <source>%lld active</source>
        <extracomment>How many trials have not ended yet. %lld is their number.</extracomment>
        <translation>
            <numerusform>%lld件有効</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TextMenu</name>
    <message>
        <source>Undo</source>
        <extracomment>Entry of a text field&apos;s context menu.</extracomment>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Cut</source>
        <extracomment>Entry of a text field&apos;s context menu.</extracomment>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy</source>
        <extracomment>Entry of a text field&apos;s context menu.</extracomment>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <extracomment>Entry of a text field&apos;s context menu.</extracomment>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Delete</source>
        <extracomment>Entry of a text field&apos;s context menu: deletes the selected text.</extracomment>
        <translation>削除</translation>
    </message>
    <message>
        <source>Select All</source>
        <extracomment>Entry of a text field&apos;s context menu: selects the whole text.</extracomment>
        <translation>すべて選択</translation>
    </message>
</context>
<context>
    <name>TrayMenu</name>
    <message>
        <source>Open Norvane</source>
        <extracomment>The one entry of the menu of the icon in the tray.</extracomment>
        <translation>Norvane を開く</translation>
    </message>
</context>
<context>
    <name>TrialList</name>
    <message>
        <source>Trials</source>
        <extracomment>What a screen reader says of the list.</extracomment>
        <translation>トライアル</translation>
    </message>
    <message numerus="yes">
        <source>%lld in total</source>
        <extracomment>What a screen reader says of the list after its name. %lld is the number of trials in it.</extracomment>
        <translation>
            <numerusform>全%lld件</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message>
        <source>Delete</source>
        <extracomment>What a screen reader says of a row&apos;s trash button.</extracomment>
        <translation>削除</translation>
    </message>
    <message>
        <source>%@ of %lld</source>
        <extracomment>The place of a trial in the list, as in &quot;3 of 12&quot;: %@ is the place, %lld the size of the list.</extracomment>
        <translation>%lld件中%@件目</translation>
    </message>
    <message numerus="yes">
        <source>%lldd left</source>
        <extracomment>How many days a trial has left, as short as can be; %lld is their number, also a negative one.</extracomment>
        <translation>
            <numerusform>残り%lld日</numerusform>
        </translation>
    </message>
</context>
</TS>
