;; Takes an assembly apart: each part moves away from the middle of what it belongs to.
;; pellux-batch frames.step --up z --size 640x400 --script explode.scm --output explode.png

(define before (app:pick-face 10 10 1000 0 0 -1 0))
(view:explode 0.8)
(view:iso)
(view:zoom-to-box -5 -5 10 105 105 150)

;; Picks find parts where they are drawn; sizes stay those of the model.
(define after (app:pick-face 10 10 1000 0 0 -1 0))
(define (name ent) (if ent (entity:name (entity:body ent)) "nothing"))
(app:print "a ray down met " (name before) " and now meets " (name after))
(app:print "size of the model: " (doc:bounding-box))
