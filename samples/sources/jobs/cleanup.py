"""Ends what nobody has touched for a day."""
import db

db.run("DELETE FROM SESSIONS WHERE STARTED < NOW() - INTERVAL 1 DAY")
print("superuser_mode is", db.superuser_mode)
