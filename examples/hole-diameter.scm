;; Finds the open bores of a model, picks the wall of each along a ray and prints its diameter.
;; Run it behind a model: pellux-batch bored-plate.step --script hole-diameter.scm
;; It knows no coordinates, so an assembly with many bores does as well.

(define (scale factor v) (map (lambda (x) (* factor x)) v))
(define (dot a b) (apply + (map * a b)))
(define (distance a b) (let ((d (map - a b))) (sqrt (dot d d))))

;; A direction at right angles to another.
(define (across v)
  (let ((x (car v)) (y (cadr v)) (z (caddr v)))
    (if (< (abs x) (abs z)) (list 0 z (- y)) (list y (- x) 0))))

;; The point of a round face's axis that is next to the middle of the face.
(define (middle face)
  (let* ((origin (entity:origin face))
         (axis (entity:direction face))
         (along (dot (map - (entity:center face) origin) axis)))
    (map + origin (scale along axis))))

;; The ray from the axis of a cylinder to its wall, as app:pick-face takes it.
(define (ray face)
  (append (middle face) (across (entity:direction face)) '(0)))

;; Around a bore the material begins at the wall; in a shank it ends there.
(define (bore? face)
  (let ((wall (measure:thickness (middle face) (across (entity:direction face))))
        (radius (entity:radius face)))
    (and wall (< (abs (- (distance (cadr wall) (middle face)) radius)) (* 0.001 radius)))))

;; A bore of two half cylinders has one wall that the ray meets, so it counts once. A bore that is
;; filled to the wall may count as one of what fills it.
(define walls
  (filter (lambda (face)
            (and (equal? (entity:surface face) "cylinder")
                 (bore? face)
                 (equal? face (apply app:pick-face (ray face)))))
          (sel:by-kind 'face)))

(for-each
  (lambda (wall)
    (app:print (entity:name (entity:body wall)) ": a bore at " (middle wall) " of diameter "
               (* 2 (entity:radius wall)) " mm, " (cadr (entity:measure wall 'radius))))
  walls)
(app:print "bores: " (length walls))

;; The walls are what a picture shows as selected.
(sel:set walls)
