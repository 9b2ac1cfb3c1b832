:again
goto again
