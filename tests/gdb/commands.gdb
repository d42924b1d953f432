set charset UTF-8
set print pretty on
break subject.cpp:20
run
print strShort
print strLong
print group
print item
print listItem
print page
